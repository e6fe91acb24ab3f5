#pragma once

#include <string>

#include <CLI/CLI.hpp>

namespace terminal {

/// A text of a program's help (UTF-8) in the user's language: Chinese where the first of LC_ALL,
/// LC_MESSAGES and LANG that is set begins with "zh", else English. Only help changes with the
/// language; what a program reports is English everywhere, as scripts may read it.
std::string Help(const char* english, const char* chinese);

/// Gives a program its name, what it is, its headings in the user's language and a --version that
/// prints `version`. Before calls are added, which take the headings over.
void DescribeProgram(CLI::App& program, const std::string& name, const std::string& what,
                     const std::string& version);

/// The folder of a project, as every call names it.
CLI::Option* AddSuiteOption(CLI::App& call, std::string& suite);
/// Consent to what a suite folder leads to outside of itself.
CLI::Option* AddTrustFlag(CLI::App& call, bool& trust);

}  // namespace terminal
