#include "desktop/RowField.h"

#include <QFocusEvent>

#include "desktop/TypingLimit.h"

namespace vantrellion {

void RowField::ShowText(const QString& text) {
    SetWholeText(this, text);
    if (!hasFocus()) setCursorPosition(0);
}

void RowField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // The whole text selected from its end back to its start leaves the cursor, and the view,
    // at the start.
    const qsizetype length = text().size();
    if (length > 0 && selectionStart() == 0 && selectionLength() == length)
        setSelection(static_cast<int>(length), static_cast<int>(-length));
}

void RowField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // A menu, or another window in front, takes the focus for a while only: the edit stays as
    // it is for the user's return.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        setCursorPosition(0);
}

}  // namespace vantrellion
