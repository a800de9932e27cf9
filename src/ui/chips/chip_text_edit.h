#pragma once

#include "ui/chips/chip_units.h"

#include <QTextEdit>

#include <functional>
#include <memory>

namespace ledra {

/// The MIME type under which a token is dragged into texts; the data are the token.
inline constexpr const char* draggedTokenFormat = "application/x-ledra-token";

/// A text with tokens, each of which is a chip: typed, deleted and chosen as a whole, copied and pasted as
/// its token. What goes back and forth is not the text's own matter.
class ChipTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    ChipTextEdit(std::unique_ptr<const ChipLanguage> language, QWidget* parent);

    /// The text with tokens.
    QString source() const;

    /// Shows a text; the cursor moves only if what is around it changes.
    ///
    /// @param movesCursor whether it goes to what has changed
    void setSource(const QString& source, bool movesCursor);

    /// Puts a chip in place of what is selected.
    void insertToken(const QString& token) { paste({chipOf(token)}); }

    /// What a token stands for, to be told when the pointer rests on its chip.
    using ValueOf = std::function<QString(const QString& token)>;
    void setValues(ValueOf valueOf) { valueOf_ = std::move(valueOf); }

Q_SIGNALS:
    void typed();    ///< the user has changed the text by a letter
    void replaced(); ///< or by more than that: a chip, something pasted or cut

protected:
    bool viewportEvent(QEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    void dropEvent(QDropEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;

    /// What is inserted of something that is pasted or dropped.
    virtual QString pastedText(const QMimeData& source) const;

    ChipUnits units() const;

private:
    ChipUnits units(int begin, int end) const;
    void paste(const ChipUnits& units);
    QString draggedToken(const QMimeData& source) const;
    void insert(QTextCursor cursor, const ChipUnits& units) const;
    void follow();
    QString tokenAt(const QPoint& place) const;

    std::unique_ptr<const ChipLanguage> language_;
    ValueOf valueOf_;
    std::size_t lengthBefore_ = 0;
    bool isShowing_ = false; ///< the program changes the text, not the user
    bool isPasting_ = false;
};

} // namespace ledra
