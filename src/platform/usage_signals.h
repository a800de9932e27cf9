#pragma once

#include "platform/user_defaults.h"

#include <QString>

namespace ledra {

/// The one place where signs of how the program is used end. Unless the user has consented ("collectData")
/// nothing is done with them; otherwise they are kept in a text file that the user can look at. Nothing is
/// ever sent.
class UsageSignals
{
public:
    UsageSignals(QString file, const UserDefaults& defaults) : file_(std::move(file)), defaults_(defaults) {}

    /// @param name such as "Styling.CSS"
    void record(const QString& name);

    /// Where they are kept; it need not be there.
    const QString& file() const { return file_; }

private:
    QString file_;
    const UserDefaults& defaults_;
};

} // namespace ledra
