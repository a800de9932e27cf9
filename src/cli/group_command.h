#pragma once

#include "cli/session.h"

#include <span>

namespace ledra {

/// One verb of a command such as "profile create NAME".
struct Verb
{
    using Run = ExitCode (*)(Session& session, const QStringList& operands,
                             const CommandArguments& arguments);

    const char* name;
    qsizetype fewest; ///< operands
    qsizetype most;
    Run run;
    bool needsWebEngine = false;
};

inline constexpr qsizetype anyNumber = 1'000'000;

/// A command whose first argument is a verb.
class GroupCommand : public Command
{
public:
    GroupCommand(const CommandSpec& spec, std::span<const Verb> verbs, Session::Needs needs)
        : spec_(spec), verbs_(verbs), needs_(needs)
    {}

    const CommandSpec& spec() const final { return spec_; }
    bool needsWebEngine(const CommandArguments& arguments) const final;
    ExitCode run(const CommandArguments& arguments) final;

private:
    const Verb* verbOf(const CommandArguments& arguments) const;

    const CommandSpec& spec_;
    std::span<const Verb> verbs_;
    Session::Needs needs_;
};

} // namespace ledra
