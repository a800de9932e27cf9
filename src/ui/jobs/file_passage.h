#pragma once

#include <QObject>

namespace ledra {

/// Lets files that are dragged over a text field through to what lies behind it. The field would only enter
/// their paths, and whoever drops an e-invoice in the middle of the window wants it read.
class FilePassage : public QObject
{
    Q_OBJECT

public:
    /// Holds for the fields of the whole program while the parent lives.
    explicit FilePassage(QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace ledra
