#include "ui/settings/profile_fields.h"

#include "model/identifier_checks.h"
#include "ui/settings/profile_choices.h"

namespace ledra {

namespace {

struct ProfileForms
{
    Q_DECLARE_TR_FUNCTIONS(ProfileForms)
};

FieldForm::Check checkOf(IdentifierProblem (*check)(const QString&))
{
    return [check](const QString& value) {
        const QByteArray problem = displayText(check(value)).toUtf8();
        return problem.isEmpty() ? QString()
                                 : QCoreApplication::translate("IdentifierChecks", problem.constData());
    };
}

/// A check that depends on the country that taxes the profile.
FieldForm::Check checkOf(IdentifierProblem (*check)(const QString&, const QString&), ProfileAccess& editing)
{
    return [check, &editing](const QString& value) {
        const QByteArray problem = displayText(check(value, editing.profile().taxResidency.code)).toUtf8();
        return problem.isEmpty() ? QString()
                                 : QCoreApplication::translate("IdentifierChecks", problem.constData());
    };
}

} // namespace

void addSenderFields(FieldForm& form, ProfileAccess& editing)
{
    form.addLine(ProfileForms::tr("Name"), editing.field(&Profile::name));
    form.addLine(ProfileForms::tr("Business"), editing.field(&Profile::businessName));
    form.addLine(ProfileForms::tr("Address"), editing.field(&Profile::addressLineOne));
    form.addLine(ProfileForms::tr("Address 2"), editing.field(&Profile::addressLineTwo));
    form.addLine(ProfileForms::tr("Postcode"), editing.field(&Profile::addressPostcode));
    form.addLine(ProfileForms::tr("City"), editing.field(&Profile::addressCity));
    form.addLine(ProfileForms::tr("State"), editing.field(&Profile::addressState));
    form.addChoice(ProfileForms::tr("Country"), countryChoices(), editing.code(&Profile::addressCountry),
                   true);
    form.addLine(ProfileForms::tr("E-mail"), editing.field(&Profile::email));
    form.addLine(ProfileForms::tr("Phone"), editing.field(&Profile::phone));
}

void addBankFields(FieldForm& form, ProfileAccess& editing)
{
    form.addLine(ProfileForms::tr("IBAN"), editing.field(&Profile::iban), checkOf(ibanProblem));
    form.addLine(ProfileForms::tr("BIC"), editing.field(&Profile::bic), checkOf(bicProblem));
}

void addTaxNumberFields(FieldForm& form, ProfileAccess& editing)
{
    form.addLine(ProfileForms::tr("Tax number"), editing.field(&Profile::taxNumber),
                 checkOf(taxNumberProblem, editing));
    form.addLine(ProfileForms::tr("VAT ID"), editing.field(&Profile::vatNumber),
                 checkOf(vatNumberProblem, editing));
}

void addTaxResidencyField(FieldForm& form, ProfileAccess& editing)
{
    form.addChoice(ProfileForms::tr("Taxed in"), countryChoices(), editing.code(&Profile::taxResidency),
                   true);
}

void addCurrencyField(FieldForm& form, ProfileAccess& editing)
{
    form.addChoice(ProfileForms::tr("Currency"), currencyChoices(), editing.code(&Profile::currency), true);
}

void addVatFields(FieldForm& form, ProfileAccess& editing)
{
    form.addNumber(ProfileForms::tr("VAT"), editing.field(&Profile::vatPercentage), 0,
                   [] { return QStringLiteral("%"); });
    form.addToggle(ProfileForms::tr("Documents without VAT"), editing.field(&Profile::hideVat));
    form.addChoice(ProfileForms::tr("Exemption"), choicesOf<VATExemptionReason>("Choices"),
                   editing.choice(&Profile::vatExemptionReason));
}

} // namespace ledra
