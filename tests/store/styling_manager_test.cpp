#include "store/styling_json.h"
#include "store/styling_manager.h"
#include "support/store_home.h"
#include "support/test_suite.h"

#include <QSignalSpy>

using namespace ledra;
using test::StoreHome;
using test::texts;

class StylingManagerTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void defaultsAndSaving();
    void damagedFile();
    void imports();
    void importFailures_data();
    void importFailures();
    void outsideChanges();
};

namespace {

struct Stylings
{
    explicit Stylings(bool watches = false)
        : home(watches),
          profiles(home.context),
          usage(home.path(QStringLiteral("usage.txt")), home.defaults),
          manager(home.context, profiles, usage)
    {}

    QString file(const QString& name) const { return home.data(QStringLiteral("1_Default/") + name); }
    const Styling& styling() const { return **manager.styling(); }

    StoreHome home;
    ProfileManager profiles;
    UsageSignals usage;
    StylingManager manager;
};

} // namespace

void StylingManagerTest::defaultsAndSaving()
{
    Stylings place;
    QVERIFY(!QFile::exists(place.file(QStringLiteral("styling.json"))));
    QVERIFY(place.manager.edit([](Styling& styling) { styling.primaryColor = QStringLiteral("112233"); }));
    QCOMPARE(StoreHome::names(place.file({})), QStringLiteral("profile.json styling.json"));
    QCOMPARE(readFile(place.file(QStringLiteral("styling.json")), largestRecordFile).value(),
             fileText(place.styling()));
    const StylingManager second(place.home.context, place.profiles, place.usage);
    QVERIFY(**second.styling() == place.styling());

    // The styling follows the active profile.
    const ProfilePtr other = *place.profiles.createProfile(QStringLiteral("Other"));
    place.profiles.resolveActiveProfile((*other)->id);
    QVERIFY(place.styling().primaryColor != QStringLiteral("112233"));
}

void StylingManagerTest::damagedFile()
{
    Stylings place;
    const QString path = place.file(QStringLiteral("styling.json"));
    const QByteArray damaged = R"({"logoSize": "big"})";
    QVERIFY(place.home.put(path, damaged));
    place.manager.load();
    QCOMPARE(place.home.console.failures.size(), 1);
    QVERIFY(
        place.home.console.failures.front().startsWith(QStringLiteral("Error loading styling from ") + path));
    QCOMPARE(place.styling().logoSize, 1.4);
    QCOMPARE(readFile(path, 100).value(), damaged);
    QVERIFY(place.manager.save());
    QCOMPARE(readFile(place.home.writer.conflicts().all().front().path, 100).value(), damaged);
}

void StylingManagerTest::imports()
{
    Stylings place;
    place.home.defaults.values[QStringLiteral("collectData")] = true;
    const auto source = [&](const char* name, const QByteArray& content) {
        const QString path = place.home.path(QString::fromLatin1(name));
        return place.home.put(path, content) ? path : QString();
    };
    QVERIFY(place.home.put(place.file(QStringLiteral("old.jpeg")), "jpeg"));
    QVERIFY(place.manager.importLogo(source("Mark.SVG", "<svg/>")));
    QCOMPARE(StoreHome::names(place.file({})), QStringLiteral("logo.svg profile.json"));
    QCOMPARE(place.styling().logo, QStringLiteral("<svg/>"));
    QVERIFY(place.manager.importLogo(source("mark.png", "png")));
    QCOMPARE(StoreHome::names(place.file({})), QStringLiteral("logo.png profile.json"));
    QVERIFY(place.styling().logo->startsWith(QStringLiteral("data:image/png;base64,")));

    QVERIFY(place.manager.importStyleSheet(source("a.css", "a{}")));
    QVERIFY(place.manager.importStyleSheet(source("b.CSS", "b{}")));
    QCOMPARE(place.styling().css, QStringLiteral("b{}"));
    QVERIFY(place.home.put(place.file(QStringLiteral("another.css")), "c{}"));
    place.manager.load();
    QCOMPARE(place.styling().css, QStringLiteral("c{}")); // the first by name
    QVERIFY(readFile(place.home.path(QStringLiteral("usage.txt")), 1000).value().contains("Styling.CSS"));
}

void StylingManagerTest::importFailures_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("isLogo");
    QTest::addColumn<QString>("text");
    QTest::newRow("logo")
        << "x.gif" << true
        << "Invalid file type. Only SVG, PNG, JPG, JPEG, and WebP files are supported for logos.";
    QTest::newRow("css") << "x.txt" << false << "Invalid file type. Only CSS files are supported.";
    QTest::newRow("missing") << "missing.png" << true << "no such file";
    QTest::newRow("folder") << "folder.css" << false << "not a file";
}

void StylingManagerTest::importFailures()
{
    QFETCH(QString, file);
    QFETCH(bool, isLogo);
    QFETCH(QString, text);
    Stylings place;
    QVERIFY(place.home.put(place.file(QStringLiteral("logo.svg")), "<svg/>"));
    QVERIFY(place.home.put(place.file(QStringLiteral("style.css")), "a{}"));
    QVERIFY(QDir().mkpath(place.home.path(QStringLiteral("folder.css"))));
    const QString path = place.home.path(file);
    const auto imported = isLogo ? place.manager.importLogo(path) : place.manager.importStyleSheet(path);
    QVERIFY(!imported && imported.error().text.endsWith(text));
    QCOMPARE(imported.error().domain, QStringLiteral("StylingManager"));
    QCOMPARE(StoreHome::names(place.file({})), QStringLiteral("logo.svg profile.json style.css"));
    QVERIFY(!QFile::exists(place.home.path(QStringLiteral("usage.txt"))));
}

void StylingManagerTest::outsideChanges()
{
    Stylings place(true);
    QSignalSpy changed(&place.manager, &StylingManager::changed);
    Styling styling = place.styling();
    styling.accentColor = QStringLiteral("AA0000");
    QVERIFY(place.home.put(place.file(QStringLiteral("styling.json")), fileText(styling)));
    QVERIFY(changed.wait());
    QCOMPARE(place.styling().accentColor, QStringLiteral("AA0000"));
    QVERIFY(place.home.put(place.file(QStringLiteral("style.css")), "a{}"));
    while (!place.styling().css)
        QVERIFY(changed.wait());
    // Own writes do not come back.
    QVERIFY(place.manager.edit([](Styling& own) { own.logoSize = 2; }));
    changed.clear();
    QVERIFY(QFile::remove(place.file(QStringLiteral("style.css"))));
    while (place.styling().css)
        QVERIFY(changed.wait());
    QCOMPARE(changed.size(), 1);
}

const ledra::test::RegisterSuite<StylingManagerTest> registration("styling_manager_test");

#include "styling_manager_test.moc"
