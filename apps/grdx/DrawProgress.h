#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace console {

/// How far a run over many sheets has come.
class DrawProgress {
public:
    /// `expected` sheets; 0 when that is not known yet.
    explicit DrawProgress(std::size_t expected) : expected_(expected) {}

    void Expect(std::size_t sheets) { expected_ = sheets; }
    void CountSheet() { ++done_; }
    /// "12 sheets done, 88 left, 0:03 so far, 0:22 to go"
    std::string Text() const;

private:
    std::size_t expected_;
    std::size_t done_ = 0;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace console
