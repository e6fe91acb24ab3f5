#include "lab/project_texts.h"

#include <algorithm>

#include "lab/Failure.h"
#include "platform/win32/code_page.h"

namespace lab {

namespace {
// What the project table's columns hold, in bytes of GBK.
constexpr std::size_t kNumberLimit = 20;
constexpr std::size_t kNameLimit = 150;

std::string CheckedText(const std::string& text, const char* what, std::size_t limit) {
    std::string gbk;
    if (!win32::TryGbkFromUtf8(text, gbk)) {
        throw Failure(std::string(what) + " \"" + text + "\": a character that GBK does not have");
    }
    if (gbk.size() > limit) {
        throw Failure(std::string(what) + " \"" + text + "\": more than " + std::to_string(limit) +
                      " bytes in GBK");
    }
    if (std::any_of(gbk.begin(), gbk.end(), [](unsigned char c) { return c < 0x20; })) {
        throw Failure(std::string(what) + ": a control character");
    }
    return gbk;
}
}  // namespace

std::string CheckedProjectNumber(const std::string& utf8) {
    if (utf8.empty() || utf8 == "." || utf8 == ".." ||
        utf8.find_first_of("\\/'") != std::string::npos || utf8.front() == ' ' ||
        utf8.back() == ' ') {
        throw Failure("project number \"" + utf8 +
                      "\": it names a folder, so it must not be empty, hold \\ / or ', or have "
                      "blanks around it");
    }
    return CheckedText(utf8, "project number", kNumberLimit);
}

std::string CheckedProjectName(const std::string& utf8) {
    return CheckedText(utf8, "project name", kNameLimit);
}

std::string ProfileValue(const std::string& gbk) {
    const bool bare = gbk.empty() || (gbk.find_first_of(" '\"") != 0 &&
                                      gbk.find_last_of(" '\"") != gbk.size() - 1);
    return bare ? gbk : '"' + gbk + '"';
}

}  // namespace lab
