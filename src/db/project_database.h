#pragma once

#include <string>

#include "platform/oledb/CComPtr.h"
#include "platform/oledb/oledb.h"

// The one connection to the project database that every table shares, and what the suite tells of
// the project's place.

/// True when the data source and the session are open after the call. Steps that were done are not
/// repeated, failed ones start again, including the question for the initialisation string. Shows
/// nothing.
bool OpenProjectDatabase();
/// The session, or null while it is not open. The caller takes no reference of its own.
IOpenRowset* ProjectSession();
/// An interface of an object; null for a null object and one that does not have it.
template <class Interface>
CComPtr<Interface> QueryInterface(IUnknown* object, REFIID riid) {
    CComPtr<Interface> wanted;
    void* found = nullptr;
    if (object != nullptr && SUCCEEDED(object->QueryInterface(riid, &found))) {
        wanted.Attach(static_cast<Interface*>(found));
    }
    return wanted;
}

/// Closes the connection when the module unloads; tables still open keep it alive until they close.
/// The next table opens it anew, from the initialisation string of that time.
void CloseProjectDatabase();

/// Tables whose failed open is told to the user.
enum TableErrorCode : int {
    kSampleTableError = 2,     ///< z_c_QuYang
    kGrainSizeTableError = 3,  ///< Z_c_KeFen
    kTestItemTableError = 4,   ///< Z_c_KeFenCSXM
    kProjectTableError = 5     ///< x_GongCheng
};
/// Shows the message box of the table that could not be opened. Another code shows nothing.
void ReportTableOpenError(int code);

/// Sets `folder` to the suite's registered folder (GBK, a Windows path, with or without a backslash
/// at its end). False, and `folder` unchanged, when the suite has none.
bool QueryRegisteredFolder(std::string& folder);
