#pragma once

class AcApDocument;

namespace host {

/// Saves a document under its name or another (Windows path). The user is asked before a file is
/// overwritten that others have changed or deleted. False, with the reason on the command line,
/// when it is not saved.
bool Save(AcApDocument& document, const char* path = nullptr);

/// Lets the user keep unsaved changes of a document that is to go. False: it must stay.
bool MayGo(AcApDocument& document);

}  // namespace host
