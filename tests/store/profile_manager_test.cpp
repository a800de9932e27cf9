#include "platform/folder_bookmark.h"
#include "store/invoice_manager.h"
#include "store/profile_json.h"
#include "support/store_home.h"
#include "support/test_suite.h"
#include "support/wait_for.h"

#include <QSignalSpy>

using namespace ledra;
using test::StoreHome;
using test::texts;

class ProfileManagerTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void firstStart();
    void folderNumbers_data();
    void folderNumbers();
    void listAndActiveProfile();
    void saving();
    void bookmarks_data();
    void bookmarks();
    void migration();
    void outsideChanges();
    void awayForAMoment();
    void nowhereToKeepProfiles();
};

namespace {

const QString bookmarkKey = QStringLiteral("customDataPathBookmark");
const QString activeKey = QStringLiteral("activeProfileId");

/// Puts a profile folder there, as another computer would have left it.
QUuid putProfile(const StoreHome& home, const QString& folder, const QString& name = {})
{
    Profile profile = newProfile(QUuid::createUuid(), QStringLiteral("DE"));
    profile.name = name;
    return home.put(folder + QStringLiteral("/profile.json"), fileText(profile)) ? profile.id : QUuid();
}

QStringList displayNames(const ProfileManager& manager)
{
    QStringList names;
    for (const ProfilePtr& profile : manager.profiles())
        names += (*profile)->displayName();
    return names;
}

} // namespace

void ProfileManagerTest::firstStart()
{
    StoreHome home;
    ProfileManager manager(home.context);
    QCOMPARE(StoreHome::names(home.data()), QStringLiteral("1_Default"));
    QCOMPARE(displayNames(manager), QStringList{QStringLiteral("Default")});
    QCOMPARE(home.defaults.value(activeKey).toString(), idText((*manager.activeProfile())->id));
    QVERIFY(home.console.failures.isEmpty());

    const ProfileManager second(home.context);
    QCOMPARE((*second.activeProfile())->id, (*manager.activeProfile())->id);
}

void ProfileManagerTest::folderNumbers_data()
{
    QTest::addColumn<QStringList>("folders");
    QTest::addColumn<qint64>("next");
    QTest::newRow("gaps, letters, no prefix") << texts({"1_A", "7_B", "x_C", "D"}) << qint64{8};
    QTest::newRow("none") << QStringList{} << qint64{1};
    QTest::newRow("hidden") << texts({".30_Tmp", "2_A"}) << qint64{3};
    QTest::newRow("empty name, empty prefix") << texts({"12_", "_x"}) << qint64{13};
}

void ProfileManagerTest::folderNumbers()
{
    QFETCH(QStringList, folders);
    StoreHome home;
    for (const QString& folder : folders)
        QVERIFY(!putProfile(home, home.data(folder)).isNull());
    const ProfileManager manager(home.context); // makes 1_Default where there is none
    QTEST(qint64{manager.nextFolderNumber() - (folders.isEmpty() ? 1 : 0)}, "next");
    QVERIFY(!displayNames(manager).contains(QStringLiteral(".30_Tmp")));
}

void ProfileManagerTest::listAndActiveProfile()
{
    StoreHome home;
    const QUuid ten = putProfile(home, home.data(QStringLiteral("10_Ten")));
    const QUuid two = putProfile(home, home.data(QStringLiteral("2_Two")));
    putProfile(home, home.data(QStringLiteral("Plain")));
    QVERIFY(home.put(home.data(QStringLiteral("3_Bad/profile.json")), R"({"daysToPay": "soon"})"));
    QVERIFY(home.put(home.data(QStringLiteral("4_NoProfile/x.txt")), "x"));
    home.defaults.values[activeKey] = idText(ten);
    {
        ProfileManager manager(home.context);
        QCOMPARE(displayNames(manager), (texts({"Two", "Ten", "Plain"})));
        QCOMPARE((*manager.activeProfile())->id, ten);
        QCOMPARE(home.console.failures.size(), 1);
        QVERIFY(
            home.console.failures.front().startsWith(QStringLiteral("Error loading profile from 3_Bad: ")));
        QVERIFY(home.console.failures.front().contains(QStringLiteral("daysToPay")));
    }
    QVERIFY(QDir(home.data(QStringLiteral("10_Ten"))).removeRecursively());
    ProfileManager manager(home.context);
    QCOMPARE((*manager.activeProfile())->id, two);
    QCOMPARE(home.defaults.value(activeKey).toString(), idText(two));
    manager.useForThisRun((*manager.profiles().back())->id);
    manager.reload();
    QCOMPARE((*manager.activeProfile())->displayName(), QStringLiteral("Plain"));
    QCOMPARE(home.defaults.value(activeKey).toString(), idText(two));
}

void ProfileManagerTest::saving()
{
    StoreHome home;
    ProfileManager manager(home.context);
    QVERIFY(manager.createProfile(QStringLiteral("Studio")));
    QVERIFY(!manager.createProfile(QStringLiteral("../x")));
    const ProfilePtr studio = manager.profiles().back();
    Profile changed = **studio;
    changed.businessName = QStringLiteral("Nordlicht");
    changed.invoiceDarkMode = true;

    // A taken name changes neither the folder nor the file.
    QVERIFY(!manager.saveProfile(changed, QStringLiteral("1_Default")));
    QCOMPARE(home.console.failures, texts({"Error renaming profile folder: destination already exists"}));
    QVERIFY((*studio)->businessName.isEmpty());

    manager.resolveActiveProfile(changed.id);
    const QString name = ProfileManager::folderNameFor(changed, QStringLiteral("Atelier"));
    QCOMPARE(name, QStringLiteral("2_Atelier"));
    QVERIFY(manager.saveProfile(changed, name));
    QCOMPARE(StoreHome::names(home.data()), QStringLiteral("1_Default 2_Atelier"));
    QCOMPARE((*studio)->displayName(), QStringLiteral("Atelier")); // the same record
    QCOMPARE((*studio)->businessName, QStringLiteral("Nordlicht"));
    QVERIFY(home.defaults.boolean(QStringLiteral("invoiceDarkMode"), false));

    QVERIFY(QDir(home.data(name)).removeRecursively());
    home.console.failures.clear();
    QVERIFY(!manager.saveProfile(**studio, name));
    QVERIFY(!manager.saveProfile(**studio, QStringLiteral("2_Other")));
    QCOMPARE(home.console.failures, (texts({"Error saving profile: directory not found",
                                            "Error renaming profile folder: source not found"})));
}

void ProfileManagerTest::bookmarks_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("isCustom");
    QTest::addColumn<QString>("line");
    QTest::newRow("as it was") << "same" << true << "";
    QTest::newRow("gone") << "gone" << true << "";
    QTest::newRow("another folder")
        << "other" << false << "ProfileManager: Security-scoped bookmark is stale, clearing custom path";
    QTest::newRow("undecodable") << "broken" << false
                                 << "ProfileManager: Failed to restore security-scoped bookmark: ";
}

void ProfileManagerTest::bookmarks()
{
    QFETCH(QString, state);
    StoreHome home;
    const QString chosen = home.path(QStringLiteral("chosen"));
    putProfile(home, chosen + QStringLiteral("/5_Mine"));
    home.defaults.values[bookmarkKey] = makeFolderBookmark(chosen);
    if (state == u"gone")
        QVERIFY(QDir(chosen).removeRecursively());
    if (state == u"other") // renamed first, so that the new folder cannot get the old one's inode
        QVERIFY(QDir().rename(chosen, home.path(QStringLiteral("old"))) && QDir().mkpath(chosen));
    if (state == u"broken")
        home.defaults.values[bookmarkKey] = QByteArray("nonsense");
    const ProfileManager manager(home.context);
    QFETCH(bool, isCustom);
    QCOMPARE(manager.customDataPath().has_value(), isCustom);
    QCOMPARE(manager.dataFolder(), isCustom ? chosen : home.path(QStringLiteral("support/Data")));
    QCOMPARE(displayNames(manager).front(),
             state == u"same" ? QStringLiteral("Mine") : QStringLiteral("Default"));
    QFETCH(QString, line);
    QVERIFY(line.isEmpty() ? home.console.failures.isEmpty()
                           : home.console.failures.front().startsWith(line));
    QCOMPARE(home.defaults.values.contains(bookmarkKey), state != u"other");
}

void ProfileManagerTest::migration()
{
    StoreHome home;
    ProfileManager manager(home.context);
    QVERIFY(manager.createProfile(QStringLiteral("Studio")));
    QVERIFY(home.put(home.data(QStringLiteral("loose.txt")), "stays"));
    const QString chosen = home.path(QStringLiteral("chosen"));
    putProfile(home, chosen + QStringLiteral("/1_Default"), QStringLiteral("theirs"));

    const Migration out = manager.setCustomDataFolder(chosen, {});
    QCOMPARE(out.moved, texts({"2_Studio"}));
    QCOMPARE(out.stayed, texts({"1_Default"}));
    QCOMPARE(StoreHome::names(home.data()), QStringLiteral("1_Default loose.txt"));
    QCOMPARE(displayNames(manager), (texts({"Default", "Studio"})));
    QCOMPARE((*manager.profiles().front())->name, QStringLiteral("theirs"));

    const Migration back = manager.resetDataFolderToDefault();
    QCOMPARE(back.moved, texts({"2_Studio"}));
    QCOMPARE(StoreHome::names(chosen), QStringLiteral("1_Default"));
    QVERIFY(!manager.customDataPath() && !home.defaults.values.contains(bookmarkKey));
    QVERIFY(home.console.failures.isEmpty());

    manager.setCustomDataFolder(chosen, home.path(QStringLiteral("never")));
    QCOMPARE(home.console.failures.front(), QStringLiteral("Migration: Source directory does not exist: ") +
                                                home.path(QStringLiteral("never")));
    const QString blocked = home.path(QStringLiteral("file/below"));
    QVERIFY(home.put(home.path(QStringLiteral("file")), "x"));
    manager.setCustomDataFolder(blocked, {});
    QVERIFY(home.console.failures.contains(
        QStringLiteral("Error migrating data to custom path: %1: the folder cannot be made").arg(blocked)));
}

void ProfileManagerTest::outsideChanges()
{
    StoreHome home(true);
    ProfileManager manager(home.context);
    const ProfilePtr first = manager.profiles().front();
    QSignalSpy changes(&manager, &ProfileManager::profilesChanged);

    QVERIFY(QDir().rename(home.data(QStringLiteral("1_Default")), home.data(QStringLiteral("1_Renamed"))));
    QVERIFY(changes.wait());
    QCOMPARE((*first)->displayName(), QStringLiteral("Renamed")); // the same record
    Profile changed = **first;
    changed.name = QStringLiteral("Ada");
    QVERIFY(home.put(home.data(QStringLiteral("1_Renamed/profile.json")), fileText(changed)));
    QVERIFY(changes.wait());
    QCOMPARE((*first)->name, QStringLiteral("Ada"));
    putProfile(home, home.data(QStringLiteral("2_New")));
    while (manager.profiles().size() < 2)
        QVERIFY(changes.wait());

    // What the store writes itself does not come back.
    QVERIFY(manager.saveProfile(**manager.profiles().back(), QStringLiteral("2_New")));
    changes.clear();
    putProfile(home, home.data(QStringLiteral("3_Last")));
    while (manager.profiles().size() < 3)
        QVERIFY(changes.wait());
    QCOMPARE(changes.size(), 1);
}

void ProfileManagerTest::awayForAMoment()
{
    StoreHome home;
    putProfile(home, home.data(QStringLiteral("1_A")));
    const QUuid id = putProfile(home, home.data(QStringLiteral("2_B")));
    home.defaults.values[activeKey] = idText(id);
    ProfileManager manager(home.context);
    const ProfilePtr active = manager.activeProfile();
    QCOMPARE((*active)->displayName(), QStringLiteral("B"));
    const auto reloadsTo = [&](const char* names) {
        manager.reload();
        return displayNames(manager).join(u' ') == QLatin1String(names) &&
               manager.activeProfile() == active && home.defaults.values[activeKey] == idText(id);
    };

    // A file that is replaced by removing it first.
    const QString file = home.data(QStringLiteral("2_B/profile.json"));
    QVERIFY(QFile::rename(file, file + QStringLiteral("~")) && reloadsTo("A B"));
    QVERIFY(QFile::rename(file + QStringLiteral("~"), file) && reloadsTo("A B"));

    // A folder that is pulled out. Nobody puts an empty one in its place.
    const QString away = home.path(QStringLiteral("away"));
    QVERIFY(QDir().rename(home.data(), away) && reloadsTo("A B"));
    QVERIFY(!manager.saveProfile(**active, QStringLiteral("2_B")) && reloadsTo("A B"));
    QVERIFY(!QFileInfo::exists(home.data()));
    QVERIFY(QDir().rename(away, home.data()) && reloadsTo("A B"));
    QVERIFY(manager.saveProfile(**active, QStringLiteral("2_B")));

    QVERIFY(QDir(home.data(QStringLiteral("2_B"))).removeRecursively());
    manager.reload();
    QCOMPARE(displayNames(manager), QStringList{QStringLiteral("A")});
}

/// The application works on, so that it can say so and the user can do something about it.
void ProfileManagerTest::nowhereToKeepProfiles()
{
    StoreHome home;
    const QString data = QDir::cleanPath(home.data());
    QVERIFY(home.put(data, "in the way"));
    home.defaults.values[activeKey] = QStringLiteral("remembered");
    ProfileManager manager(home.context);
    QVERIFY(manager.activeProfile() && !manager.profileFolder(**manager.activeProfile()));
    QCOMPARE(home.defaults.values[activeKey].toString(), QStringLiteral("remembered"));
    InvoiceManager invoices(home.context, manager);
    QVERIFY(!invoices.create(InvoiceType::invoice));
    QCOMPARE(home.console.failures.constLast(),
             QStringLiteral("Error saving invoice: the profile has no folder"));

    QVERIFY(QFile::remove(data));
    const QUuid id = putProfile(home, home.data(QStringLiteral("1_A")));
    manager.reload();
    QCOMPARE((*manager.activeProfile())->id, id);
    QVERIFY(invoices.create(InvoiceType::invoice));
}

const ledra::test::RegisterSuite<ProfileManagerTest> registration("profile_manager_test");

#include "profile_manager_test.moc"
