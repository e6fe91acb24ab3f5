#pragma once

#include <string>

#include "platform/rx/Acad.h"

// The chart commands switch the current drawing several times, which is safe only with a single
// drawing open and the host in single-document mode.

/// Makes sure that one drawing at most is open and turns single-document mode on. With several
/// drawings open the user is asked (box with that caption) whether the others may be closed.
/// False: the user declined, or a drawing with changes would not close; the mode is as it was.
bool CheckSingleDocument(const char* caption);

/// Sets the document mode that the settings profile records, single-document mode when it records
/// none, whatever the mode was before.
void RestoreDocumentMode();

bool IsMultiDocumentMode();

/// What the view shows once a drawing is open.
enum ZoomAfterOpen : int { kZoomNone = 0, kZoomExtents = 1, kZoomAll = 2 };

/// Opens one drawing, or several whose paths are joined by "|". In single-document mode the first
/// takes the place of the current drawing and the others are dropped with a message; else each
/// becomes a document of its own, until the person has had enough, and with `lock` the last of them
/// is locked for writing.
///
/// Gives the status of the first open that failed, or of the lock.
Acad::ErrorStatus OpenDocument(const std::string& paths, ZoomAfterOpen zoom, bool lock);

/// Closes the current drawing without saving, taking one lock off it first if told to.
Acad::ErrorStatus CloseCurrentDocument(bool unlock);

/// Drawings to open as documents of their own.
struct OpenRequest {
    std::string paths;  ///< joined by "|"
    ZoomAfterOpen zoom = kZoomNone;
    Acad::ErrorStatus status = Acad::eOk;  ///< out: the first failure
};

/// Body for the application context; `request` is an OpenRequest. Anywhere else it prints an error
/// and opens nothing.
void OpenRequestedDocuments(void* request);
