#pragma once

#include <QDBusConnection>
#include <QStringList>

namespace ledra {

/// Shows files in the desktop's file manager: selected, where it can do that, else their folder.
class FileReveal
{
public:
    explicit FileReveal(QDBusConnection bus = QDBusConnection::sessionBus()) : bus_(std::move(bus)) {}

    void show(const QStringList& files) const;

private:
    QDBusConnection bus_;
};

} // namespace ledra
