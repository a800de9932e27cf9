#pragma once

#include "cli/record_command.h"

namespace ledra {

/// Sets fields of a record.
class SetCommand final : public RecordCommand
{
public:
    const CommandSpec& spec() const override;

protected:
    std::optional<QString> usageProblem(const QStringList& rest,
                                        const CommandArguments& arguments) const override;
    JobResult<InvoicePtr> perform(Session& session, const InvoicePtr& record,
                                  const CommandArguments& arguments) override;
};

/// Sets the status of a record.
class StatusCommand final : public RecordCommand
{
public:
    const CommandSpec& spec() const override;

protected:
    std::optional<QString> usageProblem(const QStringList& rest,
                                        const CommandArguments& arguments) const override;
    JobResult<InvoicePtr> perform(Session& session, const InvoicePtr& record,
                                  const CommandArguments& arguments) override;
};

/// Moves a record to the trash.
class DeleteCommand final : public RecordCommand
{
public:
    const CommandSpec& spec() const override;

protected:
    JobResult<InvoicePtr> perform(Session& session, const InvoicePtr& record,
                                  const CommandArguments& arguments) override;
};

/// The keys of a record that are not for setting.
QStringList fixedInvoiceKeys();

} // namespace ledra
