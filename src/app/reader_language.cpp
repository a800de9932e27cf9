#include "app/reader_language.h"

#include <QLocale>

namespace ledra {

Language readerLanguage()
{
    return QLocale().language() == QLocale::German ? Language::german : Language::english;
}

} // namespace ledra
