#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "host/CommandInterpreter.h"
#include "host/undo/UndoHistories.h"
#include "platform/win32/win_types.h"

namespace host {

/// A running drawing program around the platform's one set of documents, commands and windows;
/// there is one of it at a time. The window system and the command line's sink are set by the
/// program. Paths and errors are UTF-8 unless said otherwise.
class Host {
public:
    Host();
    /// Closes the documents without saving and unloads the modules.
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// Makes `folder` the suite folder: profiles, database, search path and font mapping.
    bool OpenSuite(const std::string& folder, std::string& error);
    /// Loads a module; modules are unloaded in the reverse order at the end.
    bool LoadModule(const std::string& path, std::string& error);
    /// The running program's own folder; empty when the system does not tell it.
    static std::filesystem::path ProgramFolder();
    /// The module `name` beside the running program, or in the folder "lib/grdx" beside the
    /// program's; empty, and `error` says so, when it is in neither.
    static std::string FindModule(const std::string& name, std::string& error);
    /// Makes the untitled drawing that a program starts with.
    void StartDocument();

    CommandInterpreter& Interpreter() { return interpreter_; }
    UndoHistories& Histories() { return histories_; }
    /// The Windows path of a path given by the user: relative ones count from the folder in which
    /// the program was started, since commands change the current folder. All GBK.
    std::string ResolvePath(const std::string& path) const;

    void Quit() { quitting_ = true; }
    bool IsQuitting() const { return quitting_; }

private:
    UndoHistories histories_;
    CommandInterpreter interpreter_;
    HWND mainWindow_;
    std::string startFolder_;  ///< Windows path, empty when it has none
    std::vector<std::string> modules_;
    bool quitting_ = false;
};

}  // namespace host
