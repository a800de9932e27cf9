#pragma once

#include "cli/session.h"

namespace ledra {

/// A command that does one thing to one record, which its first argument names.
class RecordCommand : public Command
{
public:
    ExitCode run(const CommandArguments& arguments) final;

protected:
    /// What is wrong with the arguments behind the first; wrong usage.
    virtual std::optional<QString> usageProblem(const QStringList& rest,
                                                const CommandArguments& arguments) const;

    /// Does it; returns the record to be told of, a new one or the changed one, or none.
    virtual JobResult<InvoicePtr> perform(Session& session, const InvoicePtr& record,
                                          const CommandArguments& arguments) = 0;

    /// Whether the id of the record that perform() returns is printed.
    virtual bool makesRecord() const { return false; }
};

/// Tells of a record that a command made or changed: with --json as it stands, otherwise, if it is new, its
/// id.
void tellRecord(Session& session, const InvoicePtr& record, const CommandArguments& arguments, bool isNew);

Force forceFrom(const CommandArguments& arguments);

} // namespace ledra
