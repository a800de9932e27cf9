#pragma once

#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>

namespace ledra {

/// A titled part of a panel.
class Section : public QWidget
{
    Q_OBJECT

public:
    /// @param folds whether it can be folded up, and is at first
    Section(const QString& title, bool folds, QWidget* parent);

    QVBoxLayout* content() const { return content_; }
    QHBoxLayout* titleRow() const { return titleRow_; } ///< for buttons beside the title

private:
    QHBoxLayout* titleRow_;
    QVBoxLayout* content_;
};

} // namespace ledra
