#pragma once

/// The chart commands switch the current drawing several times, which is safe only with a single
/// drawing open and the host in single-document mode.

/// Makes sure that one drawing at most is open and turns single-document mode on. With several
/// drawings open the user is asked (box with that caption) whether the others may be closed.
/// False: the user declined, or a drawing with changes would not close; the mode is as it was.
bool CheckSingleDocument(const char* caption);

/// Sets the document mode that the settings profile records, single-document mode when it records
/// none, whatever the mode was before.
void RestoreDocumentMode();

bool IsMultiDocumentMode();
