#pragma once

#include "model/clock.h"
#include "platform/console.h"
#include "platform/trash_bin.h"
#include "platform/user_defaults.h"
#include "store/data_file_writer.h"
#include "store/invoice_json.h"

#include <QString>

namespace ledra {

/// What all stores work with; outlives them.
struct StoreContext
{
    QString support; ///< the application's support folder
    QString region;  ///< the system's, ISO 3166-1 alpha-2
    const Clock& clock;
    IdSource& ids;
    UserDefaults& defaults;
    DataFileWriter& writer;
    TrashBin& trash;
    Console& console;
    bool watchesFolders = true; ///< false for a process that ends before anything could change

    NewRecordValues newRecordValues() { return {clock.now(), ids, region}; }
};

} // namespace ledra
