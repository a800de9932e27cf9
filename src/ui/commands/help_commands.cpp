#include "ui/commands/help_commands.h"

#include "app/reader_language.h"
#include "platform/version.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QMessageBox>
#include <QSysInfo>
#include <QTextBrowser>
#include <QUrlQuery>
#include <QVBoxLayout>

namespace ledra {

namespace {

struct HelpCommands
{
    Q_DECLARE_TR_FUNCTIONS(HelpCommands)
};

QString versionText()
{
    return QString::fromLatin1(shortVersion.data(), static_cast<qsizetype>(shortVersion.size()));
}

/// Opens a message in the user's own mail program. Who packages Ledra says where it goes.
void compose(MainWindow& window, const QString& subject, const QString& body)
{
    QUrl address(QStringLiteral("mailto:") + QStringLiteral(LEDRA_CONTACT_ADDRESS));
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("subject"), subject);
    query.addQueryItem(QStringLiteral("body"), body);
    address.setQuery(query);
    if (!QDesktopServices::openUrl(address))
        window.parts().messages.warn(HelpCommands::tr("No program for e-mail could be opened."));
}

/// A page of the program's own, in the language of the window.
void showPage(MainWindow& window, const char* name, const QString& title)
{
    auto* dialog = new QDialog(&window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    auto* layout = new QVBoxLayout(dialog);
    auto* page = new QTextBrowser(dialog);
    page->setMarkdown(helpPage(name));
    page->setAccessibleName(title);
    page->setOpenExternalLinks(true);
    layout->addWidget(page);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    layout->addWidget(buttons);
    dialog->resize(560, 480);
    dialog->open();
}

} // namespace

QString helpPage(const char* name)
{
    const QString language =
        readerLanguage() == Language::german ? QStringLiteral("de") : QStringLiteral("en");
    QFile file(QStringLiteral(":/help/%1.%2.md").arg(QString::fromLatin1(name), language));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There is no page %s", name); // a slip in the program, found by opening it once
    return QString::fromUtf8(file.readAll());
}

void writeMessage(MainWindow& window)
{
    compose(window, QStringLiteral("Ledra ") + versionText(), {});
}

/// What helps to understand a problem goes into the message, where the user sees it before it is sent.
void reportProblem(MainWindow& window)
{
    const QString system = QStringLiteral("%1, %2, Qt %3, %4")
                               .arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion(),
                                    QString::fromLatin1(qVersion()), QApplication::platformName());
    QString body = HelpCommands::tr("What happened, and what did you expect?") +
                   QStringLiteral("\n\n\n---\nLedra ") + versionText() + QStringLiteral("\n") + system;
    for (const QString& line : window.parts().messages.lines())
        body += u'\n' + line;
    compose(window, HelpCommands::tr("Problem with Ledra"), body);
}

void showTerms(MainWindow& window)
{
    showPage(window, "terms", HelpCommands::tr("Terms of Use"));
}

void showPrivacy(MainWindow& window)
{
    showPage(window, "privacy", HelpCommands::tr("Privacy Policy"));
}

void showAbout(MainWindow& window)
{
    auto* about = new QMessageBox(QMessageBox::NoIcon, HelpCommands::tr("About Ledra"),
                                  QStringLiteral("Ledra %1").arg(versionText()), QMessageBox::Close, &window);
    about->setAttribute(Qt::WA_DeleteOnClose);
    constexpr int iconSize = 64;
    about->setIconPixmap(
        QApplication::windowIcon().pixmap(QSize(iconSize, iconSize), window.devicePixelRatioF()));
    about->setInformativeText(HelpCommands::tr("Invoicing for freelancers and small firms.") +
                              QStringLiteral("\n\n") +
                              HelpCommands::tr("Your data are plain files on your own computer."));
    about->open();
}

void checkForUpdates(MainWindow& window)
{
    if (UpdaterController* updater = window.parts().app.updaterController())
        updater->checkForUpdates();
}

} // namespace ledra
