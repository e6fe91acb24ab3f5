#include <filesystem>

#include "apps/grdx/CallTable.h"
#include "apps/grdx/new_suite.h"
#include "apps/grdx/suite_access.h"
#include "apps/terminal/help.h"
#include "lab/Project.h"
#include "lab/project_copy.h"
#include "lab/suite_database.h"
#include "lab/suite_profiles.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/windows_path.h"

namespace console {

using terminal::Help;
namespace fs = std::filesystem;

namespace {
constexpr std::size_t kFolderSize = 260;

/// The open suite's files, which go into the new folder. Sheets have the project's index filed in
/// their curves, and marks tell of sheets: they go only where it is the same.
void CopyFiles(const fs::path& folder, bool sameIndex) {
    const auto place = [](const std::string& windowsPath) {
        return fs::path(win32::FileSystemPath(windowsPath));
    };
    const auto copy = [&](const fs::path& from, const char* name) {
        if (fs::exists(from)) {
            fs::copy(from, folder / name,
                     fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        }
    };
    char registered[kFolderSize] = "";
    GetRegisteredFolder(registered);
    copy(place(lab::SettingsProfilePath()), "settings.ini");
    copy(place(registered) / "Support", "Support");
    if (sameIndex) {
        copy(place(lab::ProjectProfilePath()), "project.ini");
        copy(place(lab::MarkProfilePath()), "marks.ini");
        copy(place(registered) / "output", "output");
    }
}

void Tell(const lab::CopiedProject& copied, int index, MessageStream& messages) {
    for (const lab::CopiedTable& table : copied.tables) {
        messages.PrintResult(table.name + " " + std::to_string(table.rows) +
                             (table.rows == 1 ? " row\n" : " rows\n"));
        for (const std::string& column : table.leftOut) {
            messages.Report(table.name + ": column " + column + " is left out");
        }
    }
    if (copied.index != index) {
        messages.Report("project " + std::to_string(index) + " is " + std::to_string(copied.index) +
                        " there, where others have its index; sheets are to be drawn again");
    }
}

bool CopySuite(const std::string& folder, const std::string& server, MessageStream& messages) {
    const lab::Project project = lab::ReadProject();
    oledb::SqlDatabase from = lab::OpenProjectDatabase(oledb::Access::Change);
    lab::CopiedProject copied;
    MakeSuiteFolder(folder, server, [&](oledb::SqlDatabase& to, const fs::path& workshop) {
        copied = lab::CopyProject(from, project.index, to);
        CopyFiles(workshop, copied.index == project.index);
        const lab::ProjectFacts& facts = project.profile;
        return lab::ProjectEntry{copied.index, facts.number, facts.name, facts.code, facts.checked};
    });
    Tell(copied, project.index, messages);
    return true;
}
}  // namespace

void AddCopyCall(CallTable& calls) {
    struct Arguments {
        std::string folder;
        std::string database;
    };
    const auto given = std::make_shared<Arguments>();
    CLI::App& call = calls.Add(
        calls.Program(), "copy",
        Help("copy the project into a new suite folder, to a database server or back into a file",
             "将工程复制到新建的工程目录，数据可转入数据库服务器或转回文件"),
        [&calls, given](MessageStream& messages) {
            OpenSuite(calls.Suite());
            return CopySuite(given->folder, given->database, messages);
        });
    call.add_option("folder", given->folder,
                    Help("the folder to make; one that is there must be empty",
                         "要新建的目录；已存在时必须为空"))
        ->type_name("TO")
        ->required();
    call.add_option("--database", given->database,
                    Help("initialisation string of the database server that is to keep the copy, "
                         "without a password; a file in the folder otherwise",
                         "存放副本的数据库服务器的连接串，不含口令；缺省为目录中的文件"))
        ->type_name("STRING");
    calls.AddSuite(call);
    calls.AddWait(call);
}

}  // namespace console
