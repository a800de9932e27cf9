#pragma once

#include "app/first_start.h"
#include "ui/settings/profile_access.h"

#include <QObject>

namespace ledra {

/// The answers of the first start while they are given: forms show and change them, nothing of them is
/// stored. A step that is skipped takes back what was said in it.
class FirstStartDraft : public QObject, public ProfileAccess
{
    Q_OBJECT

public:
    explicit FirstStartDraft(LedraApp& app) : before_(storedAnswers(app)), answers_(before_), atStep_(before_)
    {}

    const FirstStartAnswers& before() const { return before_; }
    const FirstStartAnswers& answers() const { return answers_; }
    bool holdsAnything() const { return answers_ != before_; }

    const Profile& profile() const override { return answers_.profile; }
    void change(const Change& change) override;

    const Styling& styling() const { return answers_.styling; }
    void changeStyling(const std::function<void(Styling&)>& change);

    void beginStep() { atStep_ = answers_; }
    void skipStep() { take(atStep_); }

Q_SIGNALS:
    void changed();

private:
    void take(const FirstStartAnswers& answers);

    FirstStartAnswers before_; ///< as it is stored
    FirstStartAnswers answers_;
    FirstStartAnswers atStep_; ///< when the step was begun
};

} // namespace ledra
