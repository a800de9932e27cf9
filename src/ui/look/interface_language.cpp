#include "ui/look/interface_language.h"

#include "app/reader_language.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace ledra {

InterfaceLanguage::InterfaceLanguage()
{
    const bool isGerman = readerLanguage() == Language::german;
    if (isGerman && qt_.load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qt_);
    // English has its plurals there only.
    if (own_.load(QStringLiteral(":/translations/ledra_%1.qm")
                      .arg(isGerman ? QStringLiteral("de") : QStringLiteral("en"))))
        QCoreApplication::installTranslator(&own_); // asked before Qt's
}

} // namespace ledra
