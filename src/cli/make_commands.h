#pragma once

#include "cli/record_command.h"

namespace ledra {

/// Makes an invoice or a quote.
class NewCommand final : public Command
{
public:
    const CommandSpec& spec() const override;
    ExitCode run(const CommandArguments& arguments) override;
};

/// A command that makes one record out of another, by one job of the application.
class CopyCommand final : public RecordCommand
{
public:
    using Job = JobResult<InvoicePtr> (InvoiceJobs::*)(const QUuid&);

    CopyCommand(const CommandSpec& spec, Job job) : spec_(spec), job_(job) {}
    const CommandSpec& spec() const override { return spec_; }

protected:
    JobResult<InvoicePtr> perform(Session& session, const InvoicePtr& record,
                                  const CommandArguments& arguments) override;
    bool makesRecord() const override { return true; }

private:
    const CommandSpec& spec_;
    Job job_;
};

std::unique_ptr<Command> makeDuplicateCommand();
std::unique_ptr<Command> makeCancelCommand();
std::unique_ptr<Command> makeConvertCommand();

} // namespace ledra
