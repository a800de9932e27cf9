#include "ui/assistant/first_start_draft.h"

namespace ledra {

void FirstStartDraft::change(const Change& change)
{
    FirstStartAnswers after = answers_;
    change(after.profile);
    if (after.profile.addressCountry != answers_.profile.addressCountry)
        followCountry(after.profile, answers_.profile.addressCountry);
    take(after);
}

void FirstStartDraft::changeStyling(const std::function<void(Styling&)>& change)
{
    FirstStartAnswers after = answers_;
    change(after.styling);
    take(after);
}

void FirstStartDraft::take(const FirstStartAnswers& answers)
{
    if (answers == answers_)
        return;
    answers_ = answers;
    Q_EMIT changed();
}

} // namespace ledra
