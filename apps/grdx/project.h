#pragma once

#include "lab/Project.h"

namespace console {

class MessageStream;

/// Makes the changes asked for to the open suite folder's project and prints it then, as lines or
/// as one JSON object. A number that changes leaves sheets behind, which is told.
void ShowProject(const lab::ProjectChange& change, bool json, MessageStream& messages);

}  // namespace console
