#pragma once

#include <QString>

namespace ledra {

/// A name of this process that no other process of this computer has had or will have: boot, process number
/// and start time.
QString processIdentity();

/// Whether the process of that name still runs.
bool isAlive(const QString& identity);

} // namespace ledra
