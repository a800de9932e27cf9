#include "ui/settings/profile_name.h"

#include "ui/console_text.h"
#include "ui/settings/profile_forms.h"

namespace ledra {

namespace {

struct ProfileForms
{
    Q_DECLARE_TR_FUNCTIONS(ProfileForms)
};

/// Why a profile cannot be called that, as a sentence.
QString problemOf(const QString& name)
{
    QString problem = consoleText(profileNameProblem(name).value_or(QString()));
    if (!problem.isEmpty())
        problem[0] = problem[0].toUpper();
    return problem;
}

/// What there is to say of a name; a second profile of a name is worth a word only.
QString judged(const ProfileEditing& editing, const QString& name)
{
    const QString problem = problemOf(name);
    return problem.isEmpty() && editing.isNameOfAnother(name)
               ? ProfileForms::tr("Another profile has this name.")
               : problem;
}

} // namespace

void addProfileName(FieldForm& form, ProfileEditing& editing)
{
    auto* name = new QLineEdit(&form);
    name->setObjectName(QString::fromLatin1(profileNameField));
    form.addJudged(ProfileForms::tr("Profile name"), name);
    QObject::connect(name, &QLineEdit::textEdited, name,
                     [&form, name, &editing](const QString& text) { form.say(name, judged(editing, text)); });
    QObject::connect(name, &QLineEdit::editingFinished, name, [&form, name, &editing] {
        if (const QString problem = problemOf(name->text()); !problem.isEmpty()) {
            name->setText(editing.profile().displayName());
            form.refuse(name, problem);
        } else if (const auto renamed = editing.rename(name->text()); !renamed) {
            name->setText(editing.profile().displayName());
            Q_EMIT editing.failed(renamed.error());
        }
    });
    form.follow([&form, name, &editing] {
        if (!name->isModified() || !name->hasFocus())
            name->setText(editing.profile().displayName());
        if (!form.isRefused(name))
            form.say(name, judged(editing, name->text()));
    });
}

} // namespace ledra
