#include "ui/assistant/first_start_steps.h"

#include "ui/assistant/look_step.h"
#include "ui/settings/profile_fields.h"

namespace ledra {

namespace {

/// A form over the draft that shows what the other steps say as well.
template <void (*... add)(FieldForm&, ProfileAccess&)>
QWidget* makeForm(const FirstStartSetting& setting, QWidget* parent)
{
    auto* form = new FieldForm(parent);
    (add(*form, setting.draft), ...);
    QObject::connect(&setting.draft, &FirstStartDraft::changed, form, &FieldForm::refresh);
    return form;
}

QWidget* makeLook(const FirstStartSetting& setting, QWidget* parent)
{
    return new LookStep(setting, parent);
}

constexpr std::array steps = {
    FirstStartStep{QT_TRANSLATE_NOOP("ledra::FirstStartAssistant", "Who sends the invoices?"),
                   QT_TRANSLATE_NOOP(
                       "ledra::FirstStartAssistant",
                       "This stands at the head of your documents. The country decides which currency, VAT "
                       "rate and language Ledra proposes."),
                   makeForm<addSenderFields>},
    FirstStartStep{QT_TRANSLATE_NOOP("ledra::FirstStartAssistant", "Where are you paid?"),
                   QT_TRANSLATE_NOOP(
                       "ledra::FirstStartAssistant",
                       "The account stands on your invoices; e-invoices carry it for the customer’s bank."),
                   makeForm<addBankFields, addCurrencyField>},
    FirstStartStep{
        QT_TRANSLATE_NOOP("ledra::FirstStartAssistant", "How are you taxed?"),
        QT_TRANSLATE_NOOP("ledra::FirstStartAssistant",
                          "Invoices need a tax number or a VAT ID. New lines take the rate; small businesses "
                          "write documents without VAT."),
        makeForm<addTaxResidencyField, addTaxNumberFields, addVatFields>},
    FirstStartStep{QT_TRANSLATE_NOOP("ledra::FirstStartAssistant", "What should your documents look like?"),
                   QT_TRANSLATE_NOOP(
                       "ledra::FirstStartAssistant",
                       "Choose a look and your colors. All of it can be changed later, down to each font."),
                   makeLook},
};

} // namespace

std::span<const FirstStartStep> firstStartSteps()
{
    return steps;
}

} // namespace ledra
