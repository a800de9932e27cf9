#pragma once

#include "platform/working_folder.h"

#include <optional>

namespace ledra {

class MessageBar;

/// Folders for files that are handed to other programs: fresh ones that only this user can look into. They go
/// with the object that makes them, since who has been given a file may read it late.
class TemporaryFolders
{
public:
    /// An empty one; nothing where none can be made, which is said.
    std::optional<QString> make(MessageBar& messages);

private:
    std::optional<WorkingFolder> folder_;
    int count_ = 0;
};

} // namespace ledra
