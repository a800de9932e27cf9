#include "cli/group_command.h"

namespace ledra {

const Verb* GroupCommand::verbOf(const CommandArguments& arguments) const
{
    const QString name = arguments.positional().value(0);
    const auto verb = std::ranges::find_if(
        verbs_, [&](const Verb& candidate) { return name == QLatin1StringView(candidate.name); });
    return verb == verbs_.end() ? nullptr : &*verb;
}

bool GroupCommand::needsWebEngine(const CommandArguments& arguments) const
{
    const Verb* verb = verbOf(arguments);
    return verb && verb->needsWebEngine;
}

ExitCode GroupCommand::run(const CommandArguments& arguments)
{
    const QString name = arguments.positional().value(0);
    const QStringList operands = arguments.positional().mid(1);
    const Verb* verb = verbOf(arguments);
    if (!verb)
        return wrongUsage(spec_, name.isEmpty() ? QStringLiteral("what shall it do?")
                                                : QStringLiteral("unknown action \"%1\"").arg(name));
    if (operands.size() < verb->fewest || operands.size() > verb->most)
        return wrongUsage(
            spec_,
            QStringLiteral("too %1 arguments for \"%2\"")
                .arg(operands.size() < verb->fewest ? QStringLiteral("few") : QStringLiteral("many"), name));
    const auto session = Session::start(arguments, needs_);
    return session ? verb->run(**session, operands, arguments) : session.error();
}

} // namespace ledra
