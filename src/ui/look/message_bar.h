#pragma once

#include <QFrame>
#include <QString>

#include <functional>
#include <vector>

class QVBoxLayout;

namespace ledra {

struct StatusLook;

/// Says above the content what went wrong, until somebody has read it. The same line is not said twice.
class MessageBar : public QWidget
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    /// Something that can be done about it.
    struct Remedy
    {
        QString text;
        std::function<void()> run;
    };

    void warn(const QString& line, const std::vector<Remedy>& remedies = {});

    /// Something went well that can be followed up; it goes by itself after a while.
    void inform(const QString& line, const std::vector<Remedy>& remedies);

    QStringList lines() const; ///< that are to be read
    void clear();

    /// Something went well, or is worth a glance; it goes by itself.
    void note(const QString& line) { Q_EMIT noted(line); }

Q_SIGNALS:
    void noted(const QString& line);

private:
    QFrame* addRow(const QString& line, const std::vector<Remedy>& remedies, const char* icon,
                   const StatusLook& look);
    void remove(QFrame* row);

    QVBoxLayout* layout_;
    std::vector<std::pair<QString, QFrame*>> rows_;
};

} // namespace ledra
