#include "ui/desktop/application_icon.h"

#include "ui/look/appearance.h"

#include <QApplication>
#include <QIcon>

namespace ledra {

QIcon applicationIcon(const QString& choice)
{
    return QIcon(QStringLiteral(":/application-icons/%1%2.svg")
                     .arg(choice, isDarkAppearance() ? QStringLiteral("-dark") : QString()));
}

void ApplicationIcon::apply()
{
    QApplication::setWindowIcon(
        applicationIcon(settings_.text(QStringLiteral("appIcon")).value_or(QString())));
}

} // namespace ledra
