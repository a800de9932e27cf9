#include "app/first_start.h"

#include "model/field_changes.h"
#include "model/new_invoices.h"
#include "model/region.h"

namespace ledra {

namespace {

const QString offeredKey = QStringLiteral("FirstStart.wasOffered");
const QString termsKey = QStringLiteral("termsAccepted");

/// What the example says, in the language of the document.
struct ExampleTexts
{
    const char* item;
    const char* firm;
    const char* customer;
    const char* street;
    const char* city;
    const char* sender;
};

constexpr std::array exampleTexts = {
    ExampleTexts{"Example: consulting, by the hour", "Corner Bookshop", "Jamie Example", "12 High Street",
                 "Sampleton", "Your Name"},
    ExampleTexts{"Beispiel: Beratung nach Stunden", "Buchhandlung am Eck", "Kim Beispiel", "Hauptstraße 12",
                 "Musterstadt", "Ihr Name"},
};

const ExampleTexts& textsOf(const Profile& profile)
{
    return exampleTexts.at(profile.language == Language::german ? 1 : 0);
}

Invoice::Item exampleItem(const Profile& profile, IdSource& ids)
{
    constexpr double usualRate = 80; // of somebody who has not said one
    Invoice::Item item = newItem(profile, ids);
    item.item = QString::fromUtf8(textsOf(profile).item);
    item.quantity = 2;
    item.unit = Unit::hour;
    item.unitPrice = profile.hourlyRate > 0 ? profile.hourlyRate : usualRate;
    if (profile.hideVat)
        item.vatPercentage = 0;
    return item;
}

/// Whether a profile holds nothing but what a new one does.
bool isUntouched(const Profile& profile)
{
    if (!profile.profileName)
        return false; // it has no folder to keep anything in
    Profile fresh = newProfile(profile.id, systemRegion());
    fresh.profileName = profile.profileName;
    return profile == fresh;
}

JobResult<void> settled(const std::expected<void, QString>& done)
{
    if (!done)
        return std::unexpected(JobFailure{JobFailure::Kind::store, done.error()});
    return {};
}

JobResult<void> keepProfile(ProfileManager& profiles, const Profile& before, const Profile& after)
{
    const ProfilePtr stored = profiles.find(before.id);
    if (!stored || stored != profiles.activeProfile())
        return std::unexpected(JobFailure{.text = QStringLiteral("another profile is in use by now")});
    Profile profile = **stored;
    copyFields(after, profile, changedFields(before, after));
    if (profile == **stored)
        return {};
    return jobResult(profiles.saveProfile(profile, profile.profileName.value_or(QString())));
}

} // namespace

bool isFirstStart(LedraApp& app)
{
    const std::vector<ProfilePtr>& profiles = app.profileManager().profiles();
    return !app.settings().boolean("termsAccepted") && !app.defaults().boolean(offeredKey, false) &&
           profiles.size() == 1 && app.profileManager().activeProfile() && isUntouched(**profiles.front()) &&
           app.invoiceManager().invoices().empty();
}

JobResult<void> noteFirstStart(LedraApp& app)
{
    return settled(app.defaults().setValue(offeredKey, true));
}

JobResult<void> acceptTerms(LedraApp& app)
{
    return settled(app.settings().set(termsKey, QStringLiteral("true")));
}

FirstStartAnswers storedAnswers(LedraApp& app)
{
    const DocumentSetting setting = app.documentSetting();
    return {setting.profile, setting.styling};
}

void followCountry(Profile& profile, const Country& before)
{
    if (!findCountry(profile.addressCountry.code))
        return;
    const Profile there = newProfile(profile.id, profile.addressCountry.code);
    const Profile here = newProfile(profile.id, before.code);
    const auto follow = [&](auto field) {
        if (profile.*field == here.*field)
            profile.*field = there.*field;
    };
    follow(&Profile::taxResidency);
    follow(&Profile::currency);
    follow(&Profile::vatPercentage);
    follow(&Profile::language);
    follow(&Profile::cancellationPrefix);
    follow(&Profile::quotePrefix);
}

JobResult<void> keepFirstStart(LedraApp& app, const FirstStartAnswers& before, const FirstStartAnswers& after)
{
    if (const JobResult<void> kept = keepProfile(app.profileManager(), before.profile, after.profile); !kept)
        return kept;
    const FieldSet<Styling> changes = changedFields(before.styling, after.styling);
    if (changes.none())
        return {};
    return jobResult(
        app.stylingManager().edit([&](Styling& styling) { copyFields(after.styling, styling, changes); }));
}

JobResult<InvoicePtr> createExampleDraft(LedraApp& app)
{
    const Profile profile = **app.profileManager().activeProfile();
    return app.undoableJobs().create(
        InvoiceType::invoice, [&](Invoice& invoice) { invoice.items = {exampleItem(profile, app.ids())}; });
}

Invoice exampleInvoice(const Profile& profile, const Clock& clock, IdSource& ids)
{
    const ExampleTexts& texts = textsOf(profile);
    Invoice invoice = invoiceFromProfile(InvoiceType::invoice, {profile, 1, clock.now(), ids});
    invoice.businessName = QString::fromUtf8(texts.firm);
    invoice.name = QString::fromUtf8(texts.customer);
    invoice.addressLineOne = QString::fromUtf8(texts.street);
    invoice.addressCity = QString::fromUtf8(texts.city);
    if (invoice.senderName.isEmpty() && invoice.senderBusinessName.isEmpty())
        invoice.senderName = QString::fromUtf8(texts.sender);
    invoice.items = {exampleItem(profile, ids)};
    return invoice;
}

} // namespace ledra
