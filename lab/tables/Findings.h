#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lab {

/// What stands against the files of one call, and what the user should know of them.
class Findings {
public:
    /// The place is a file with a line, or a sheet and cell.
    void Refuse(const std::string& place, const std::string& reason);
    /// Told once, however often it is noted.
    void Note(const std::string& text);

    bool Refused() const { return count_ > 0; }
    /// Failure with a line for each refusal, when there is one; of very many the first are told.
    void ThrowIfRefused() const;
    const std::vector<std::string>& Notes() const { return notes_; }

private:
    std::vector<std::string> refusals_;
    std::vector<std::string> notes_;
    std::size_t count_ = 0;
};

/// The text in quotes for a message, cut when it is long.
std::string Quoted(std::string_view text);

}  // namespace lab
