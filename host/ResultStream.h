#pragma once

#include <string>
#include <string_view>

namespace host {

/// Standard output as programs write their results to it, each at once and UTF-8. What cannot be
/// written is remembered: the work goes on, as what it makes does not depend on the telling.
class ResultStream {
public:
    /// From then on a pipe that nobody reads any more is a failure like others, and does not end
    /// the program.
    ResultStream();

    void Print(std::string_view text);

    /// Something has not been written.
    bool Failed() const { return fault_ != 0; }
    /// Why, to be told (UTF-8); empty for a reader who has gone: he wants no more.
    std::string Fault() const;

private:
    int fault_ = 0;  ///< errno of the first failure
};

}  // namespace host
