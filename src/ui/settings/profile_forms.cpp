#include "ui/settings/profile_forms.h"

#include "model/number_format.h"
#include "model/number_format_checks.h"
#include "ui/chips/chip_history.h"
#include "ui/look/profile_symbols.h"
#include "ui/number_format/number_format_edit.h"
#include "ui/reminders/variable_buttons.h"
#include "ui/reminders/variable_text_edit.h"
#include "ui/settings/profile_choices.h"
#include "ui/settings/profile_fields.h"
#include "ui/settings/profile_name.h"

#include <QPushButton>

namespace ledra {

namespace {

constexpr const char* choiceTexts = "Choices"; ///< the context in which the choices are translated

struct ProfileForms
{
    Q_DECLARE_TR_FUNCTIONS(ProfileForms)
};

QString numberFormatText(const NumberFormatFinding& finding)
{
    const QByteArray text = displayText(finding.problem).toUtf8();
    return text.isEmpty() ? QString()
                          : QCoreApplication::translate("NumberFormatChecks", text.constData())
                                .replace(QStringLiteral("%1"), finding.detail);
}

FieldForm::Unit currencyOf(const ProfileEditing& editing)
{
    return [&editing] { return editing.profile().currency.symbol(); };
}

// ---- the pages

void fillInformation(FieldForm& form, ProfileEditing& editing)
{
    addProfileName(form, editing);
    QComboBox* symbols =
        form.addChoice(ProfileForms::tr("Symbol"), symbolChoices(), editing.field(&Profile::icon));
    for (int row = 0; row < symbols->count(); ++row)
        symbols->setItemIcon(row, profileIcon(symbols->itemData(row).toString()));
    addSenderFields(form, editing);
    form.addLine(ProfileForms::tr("Website"), editing.field(&Profile::website));
    form.addParagraph(ProfileForms::tr("Additional"), editing.field(&Profile::additional), 2);
}

void fillFinancial(FieldForm& form, ProfileEditing& editing)
{
    addBankFields(form, editing);
    addTaxNumberFields(form, editing);
    form.addParagraph(ProfileForms::tr("Further numbers"), editing.field(&Profile::additionalNumbers), 3);
    addTaxResidencyField(form, editing);
    addCurrencyField(form, editing);
}

constexpr int anyYear = 1999; ///< stands for none
constexpr int lastYear = 2199;

/// The year in which the first number is the start number; any when there is none.
void addStartYear(FieldForm& form, ProfileEditing& editing)
{
    const Access<std::optional<std::int64_t>> year = editing.field(&Profile::startNumberYear);
    QSpinBox* field =
        form.addCount(ProfileForms::tr("Begins in"),
                      {[year] { return static_cast<int>(year.read().value_or(anyYear)); },
                       [year](const int& value) {
                           year.write(value == anyYear ? std::nullopt : std::optional<std::int64_t>(value));
                       }},
                      anyYear, lastYear);
    field->setSpecialValueText(ProfileForms::tr("Any year"));
}

QString sampleOf(const Profile& profile)
{
    const QString number =
        renderNumberFormat(parseNumberFormat(profile.numberFormat),
                           {profile.startNumber, QDate::currentDate(), QStringLiteral("ABC")});
    return ProfileForms::tr("Invoice %1, quote %2, cancellation %3")
        .arg(number, profile.quotePrefix + number, profile.cancellationPrefix + number);
}

/// The format is written as it is typed; an empty one is not, since a file without a format gets the usual
/// one, and the line shows again what is in force once it is left.
void addNumberFormat(FieldForm& form, ProfileEditing& editing)
{
    auto* field = new NumberFormatEdit(&form);
    form.addField(ProfileForms::tr("Number format"), field);
    const Access<QString> access = editing.field(&Profile::numberFormat);
    const auto judge = [field, &editing] {
        const Profile& profile = editing.profile();
        field->setSample(sampleOf(profile));
        field->setProblem(numberFormatText(checkNumberFormat(field->format(), profile.resetNumberFrequency)));
    };
    const auto show = [field, access, judge, &editing] {
        if (!field->format().isEmpty() || !field->line().hasFocus())
            field->setFormat(access.read(), editing.profile().id);
        judge();
    };
    QObject::connect(field, &NumberFormatEdit::edited, field, [field, access, judge] {
        if (!field->format().isEmpty())
            access.write(field->format());
        judge();
    });
    QObject::connect(&field->line(), &ChipLineEdit::editingFinished, field, show);
    form.follow(show);
}

void fillNumbering(FieldForm& form, ProfileEditing& editing)
{
    addNumberFormat(form, editing);
    form.addLine(ProfileForms::tr("Prefix of quotes"), editing.field(&Profile::quotePrefix));
    form.addLine(ProfileForms::tr("Prefix of cancellations"), editing.field(&Profile::cancellationPrefix));
    constexpr int mostNumber = 99'999'999;
    form.addCount(ProfileForms::tr("First number"), editing.count(&Profile::startNumber), 0, mostNumber);
    addStartYear(form, editing);
    form.addChoice(ProfileForms::tr("Begins anew"), choicesOf<NumberResetFrequency>(choiceTexts),
                   editing.choice(&Profile::resetNumberFrequency));
}

void fillPresets(FieldForm& form, ProfileEditing& editing)
{
    form.addChoice(ProfileForms::tr("Language"), choicesOf<Language>(choiceTexts),
                   editing.choice(&Profile::language));
    constexpr int mostDays = 3650;
    form.addCount(ProfileForms::tr("Days to pay"), editing.count(&Profile::daysToPay), 0, mostDays);
    addVatFields(form, editing);
    const FieldForm::Unit unit = currencyOf(editing);
    form.addSwitchedNumber(ProfileForms::tr("Hourly rate"), editing.field(&Profile::hourlyRate), unit);
    form.addSwitchedNumber(ProfileForms::tr("Daily rate"), editing.field(&Profile::dailyRate), unit);
    form.addSwitchedNumber(ProfileForms::tr("Weekly rate"), editing.field(&Profile::weeklyRate), unit);
    form.addParagraph(ProfileForms::tr("Note at the margin"), editing.field(&Profile::marginalNote), 3);
    form.addToggle(ProfileForms::tr("Show documents dark in dark windows"),
                   editing.field(&Profile::invoiceDarkMode));
}

/// The letter with its variables as chips; what is written are their tokens.
void addReminderTemplate(FieldForm& form, ProfileEditing& editing)
{
    auto* letter = new VariableTextEdit(&form);
    constexpr int height = 220;
    letter->setFixedHeight(height);
    letter->setPlaceholderText(ProfileForms::tr("Empty: the text that Ledra brings along"));
    form.addField(ProfileForms::tr("Text"), letter);
    constexpr int columns = 2;
    form.addField(QString(), new VariableButtons(*letter, columns, &form));
    auto* history = new ChipHistory(*letter);
    const Access<QString> access = editing.field(&Profile::reminderTemplate);
    QObject::connect(history, &ChipHistory::edited, letter,
                     [letter, access] { access.write(letter->source()); });
    form.follow([history, access, &editing, owner = QUuid()]() mutable {
        const QUuid id = editing.profile().id;
        if (std::exchange(owner, id) == id)
            history->show(access.read());
        else // the way back never leads to the letter of another profile
            history->start(access.read());
    });
}

void fillReminder(FieldForm& form, ProfileEditing& editing)
{
    addReminderTemplate(form, editing);
    form.addToggle(ProfileForms::tr("Begin with a friendly reminder, without interest and fee"),
                   editing.field(&Profile::friendlyReminderEnabled));
    form.addNumber(ProfileForms::tr("Interest"), editing.field(&Profile::latePaymentInterestRate), 0,
                   [] { return ProfileForms::tr("% per year"); });
    form.addNumber(ProfileForms::tr("Fee"), editing.field(&Profile::latePaymentFee), 2, currencyOf(editing));
}

constexpr std::array pages = {
    ProfileFormPage{QT_TRANSLATE_NOOP("ProfileForms", "Profile Information"), fillInformation},
    ProfileFormPage{QT_TRANSLATE_NOOP("ProfileForms", "Financial Information"), fillFinancial},
    ProfileFormPage{QT_TRANSLATE_NOOP("ProfileForms", "Invoice Numbering"), fillNumbering},
    ProfileFormPage{QT_TRANSLATE_NOOP("ProfileForms", "Presets"), fillPresets},
    ProfileFormPage{QT_TRANSLATE_NOOP("ProfileForms", "Reminder"), fillReminder},
};

} // namespace

std::span<const ProfileFormPage> profileFormPages()
{
    return pages;
}

} // namespace ledra
