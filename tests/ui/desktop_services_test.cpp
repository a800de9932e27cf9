#include "support/message_bus.h"
#include "support/test_suite.h"
#include "ui/document_desk.h"
#include "ui/jobs/file_reveal.h"

#include <QDBusArgument>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QSignalSpy>

using namespace ledra;

/// The part of a desktop's portal that opens letters.
class MailPortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Email")

public:
    QString parent;
    QVariantMap options;
    QByteArray attached;

public Q_SLOTS:
    // NOLINTNEXTLINE(readability-identifier-naming)
    QDBusObjectPath ComposeEmail(const QString& window, const QVariantMap& given)
    {
        parent = window;
        options = given;
        const auto files = qdbus_cast<QList<QDBusUnixFileDescriptor>>(
            given[QStringLiteral("attachment_fds")].value<QDBusArgument>());
        QFile file;
        if (files.size() == 1 && file.open(files[0].fileDescriptor(), QIODevice::ReadOnly))
            attached = file.readAll();
        Q_EMIT composed();
        return QDBusObjectPath(QStringLiteral("/org/freedesktop/portal/desktop/request/1"));
    }

Q_SIGNALS:
    void composed();
};

class FileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public Q_SLOTS:
    // NOLINTNEXTLINE(readability-identifier-naming)
    void ShowItems(const QStringList& uris, const QString&) { Q_EMIT shown(uris); }

Q_SIGNALS:
    void shown(const QStringList& uris);
};

/// What the desktop does for the window, over a message bus of the test's own.
class DesktopServicesTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void initTestCase()
    {
        if (!bus_.start())
            QSKIP("needs dbus-daemon");
    }

    void portalGetsTheLetter()
    {
        QDBusConnection desktop = bus_.connection("desktop");
        QVERIFY(desktop.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
        MailPortal portal;
        QVERIFY(desktop.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), &portal,
                                       QDBusConnection::ExportAllSlots));
        QSignalSpy composed(&portal, &MailPortal::composed);
        const QString file = home_->path(QStringLiteral("Invoice 1.pdf"));
        QVERIFY(test::writeFile(file, "%PDF-1.7 letter"));
        test::DocumentDesk desk;
        MailSender sender(desk.parts, bus_.connection("window"));
        sender.compose({QStringLiteral("erika@example.de"), QStringLiteral("Rechnung 1 – März"), {file}});
        QVERIFY(composed.wait());
        QCOMPARE(portal.options[QStringLiteral("address")].toString(), QStringLiteral("erika@example.de"));
        QCOMPARE(portal.options[QStringLiteral("subject")].toString(), QStringLiteral("Rechnung 1 – März"));
        QCOMPARE(portal.attached, QByteArray("%PDF-1.7 letter"));
    }

    void fileManagerShowsTheFile()
    {
        QDBusConnection desktop = bus_.connection("desktop");
        QVERIFY(desktop.registerService(QStringLiteral("org.freedesktop.FileManager1")));
        FileManager manager;
        QVERIFY(desktop.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager,
                                       QDBusConnection::ExportAllSlots));
        QSignalSpy shown(&manager, &FileManager::shown);
        FileReveal(bus_.connection("window")).show({QStringLiteral("/data/Rechnung 1.pdf")});
        QVERIFY(shown.wait());
        QCOMPARE(shown[0][0].toStringList(), QStringList{QStringLiteral("file:///data/Rechnung%201.pdf")});
    }

private:
    std::unique_ptr<test::ProgramHome> home_;
    test::MessageBus bus_;
};

const ledra::test::RegisterSuite<DesktopServicesTest> registration("desktop_services_test");

#include "desktop_services_test.moc"
