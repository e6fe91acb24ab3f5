#include "apps/terminal/help.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace terminal {

namespace {
bool ReadsChinese() {
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* const locale = std::getenv(variable);
        if (locale != nullptr && *locale != '\0') {
            return std::string_view(locale).substr(0, 2) == "zh";
        }
    }
    return false;
}

constexpr std::pair<const char*, const char*> kHeadings[] = {
    {"Usage", "用法"},         {"OPTIONS", "选项"},      {"SUBCOMMAND", "子命令"},
    {"SUBCOMMANDS", "子命令"}, {"Positionals", "参数"},  {"REQUIRED", "必填"},
    {"Env", "环境变量"},       {"Excludes", "不能同用"}, {"Needs", "须同用"},
};

/// Columns that a terminal gives the character that begins at `text[at]`; `at` goes past it.
std::size_t TakeCharacter(std::string_view text, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    at += lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
    return lead < 0xe0 ? 1 : 2;  // three bytes and more are Chinese here
}

std::size_t Width(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t at = 0; at < text.size();) {
        width += TakeCharacter(text, at);
    }
    return width;
}

/// The part of `text` that `columns` hold, cut at a blank or beside a Chinese character; it goes.
std::string TakeLine(std::string_view& text, std::size_t columns) {
    std::size_t cut = 0;
    std::size_t width = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const std::size_t wide = TakeCharacter(text, at);
        if (text[begin] == ' ' || wide == 2) {
            cut = begin;
        }
        width += wide;
        if (width > columns && cut > 0) {
            break;
        }
        if (at == text.size()) {
            cut = at;
        }
    }
    std::string line(text.substr(0, cut));
    text.remove_prefix(cut);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return line;
}

/// Lists names and what they mean in two columns, which it measures as a terminal shows them.
class HelpLayout : public CLI::Formatter {
public:
    std::string make_option(const CLI::Option* option, bool positional) const override {
        return Entry(make_option_name(option, positional) + make_option_opts(option),
                     option->get_description());
    }
    std::string make_subcommand(const CLI::App* call) const override {
        return Entry(call->get_name(), call->get_description());
    }

private:
    static std::string Entry(const std::string& name, std::string_view meaning) {
        constexpr std::size_t kIndent = 28;
        constexpr std::size_t kLine = 100;
        std::string entry = "  " + name;
        std::size_t width = Width(entry);
        if (width >= kIndent) {
            entry += '\n';
            width = 0;
        }
        while (!meaning.empty()) {
            entry.append(kIndent - width, ' ');
            entry += TakeLine(meaning, kLine - kIndent);
            entry += '\n';
            width = 0;
        }
        return entry;
    }
};
}  // namespace

std::string Help(const char* english, const char* chinese) {
    static const bool chineseUser = ReadsChinese();
    return chineseUser ? chinese : english;
}

void DescribeProgram(CLI::App& program, const std::string& name, const std::string& what,
                     const std::string& version) {
    program.name(name);
    program.description(what);
    program.formatter(std::make_shared<HelpLayout>());
    for (const auto& [english, chinese] : kHeadings) {
        program.get_formatter()->label(english, Help(english, chinese));
    }
    const std::string options = Help("Options", "选项");
    program.option_defaults()->group(options);
    program.set_help_flag("-h,--help", Help("show this help", "显示本帮助"))->group(options);
    program.set_version_flag("--version", version,
                             Help("show the version, the commit it was built from and the formats",
                                  "显示版本、构建所用的提交和文件格式"));
}

CLI::Option* AddSuiteOption(CLI::App& call, std::string& suite) {
    return call
        .add_option("-s,--suite", suite,
                    Help("suite folder: the folder of a project, with its settings, database and "
                         "drawings",
                         "工程目录：一个工程的配置文件、数据库和图形都在其中"))
        ->type_name("DIR")
        ->envname("GRDX_SUITE");
}

CLI::Option* AddTrustFlag(CLI::App& call, bool& trust) {
    return call.add_flag("--trust", trust,
                         Help("agree, from now on, to the files and databases outside of it that "
                              "the suite folder leads to",
                              "今后允许该工程目录使用目录以外的文件和数据库"));
}

}  // namespace terminal
