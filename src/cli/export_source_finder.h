#pragma once

#include "app/export_sources.h"
#include "cli/session.h"
#include "model/region.h"

namespace ledra {

/// Whether the options choose records instead of naming them.
bool choosesAll(const CommandArguments& arguments);

/// Finds the documents that the arguments name. It keeps what they are made from.
class ExportSourceFinder
{
public:
    ExportSourceFinder(const CommandArguments& arguments, Console& console)
        : arguments_(arguments), files_(clock_, ids_, systemRegion(), console)
    {}

    /// All sources; what is wrong has been said when there are none. A record that is not found is named, and
    /// the others go on.
    std::expected<std::vector<ExportSource>, ExitCode> find() { return find(arguments_.positional()); }

    /// The same for documents of the caller's choice.
    std::expected<std::vector<ExportSource>, ExitCode> find(const QStringList& arguments);

    bool hasMissing() const { return hasMissing_; }

private:
    std::expected<std::vector<ExportSource>, ExitCode> fromFiles(const QStringList& paths);
    std::expected<std::vector<ExportSource>, ExitCode> fromRecords(const QStringList& names);
    std::expected<std::vector<ExportSource>, QString> withOwnStyling(std::vector<ExportSource> sources);

    const CommandArguments& arguments_;
    SystemClock clock_;
    RandomIdSource ids_;
    BareFiles files_;
    std::unique_ptr<Session> session_;
    bool hasMissing_ = false;
};

} // namespace ledra
