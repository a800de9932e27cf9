#pragma once

#include <QTranslator>

namespace ledra {

/// Has the interface speak the reader's language for as long as it lives: German where the system does,
/// English, in which it is written, everywhere else. Qt's own dialogs follow where its translations are
/// installed.
class InterfaceLanguage
{
public:
    InterfaceLanguage();

private:
    QTranslator own_;
    QTranslator qt_;
};

} // namespace ledra
