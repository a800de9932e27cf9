#include "ui/look/interface_language.h"

#include "app/reader_language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace ledra {

InterfaceLanguage::InterfaceLanguage(const Settings& settings) : settings_(settings)
{
    apply();
}

QString InterfaceLanguage::wanted() const
{
    return settings_.text(QStringLiteral("language")).value_or(QString());
}

bool InterfaceLanguage::isOutdated() const
{
    return wanted() != inForce_;
}

void InterfaceLanguage::apply()
{
    inForce_ = wanted();
    const QLocale system = QLocale::system();
    const std::optional<WantedLanguage> language = enumFromRawValue<WantedLanguage>(inForce_.toStdString());
    if (language == WantedLanguage::german)
        QLocale::setDefault(QLocale(QLocale::German, system.territory()));
    else if (language == WantedLanguage::english)
        QLocale::setDefault(QLocale(QLocale::English, system.territory()));
    else
        QLocale::setDefault(system);

    const bool isGerman = readerLanguage() == Language::german;
    QCoreApplication::removeTranslator(&own_);
    QCoreApplication::removeTranslator(&qt_);
    if (isGerman && qt_.load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qt_);
    // English has its plurals there only.
    if (own_.load(QStringLiteral(":/translations/ledra_%1.qm")
                      .arg(isGerman ? QStringLiteral("de") : QStringLiteral("en"))))
        QCoreApplication::installTranslator(&own_); // asked before Qt's
}

} // namespace ledra
