// A text field of a relay row. It shows the start of its text whenever the user is not editing
// it, and also when the focus arrives with the whole text selected: a name longer than the
// field shows its first characters (never the end or the middle, as a line edit would after a
// new text, a selection or an edit), and as the field grows with the window it shows more.
#pragma once

#include <QLineEdit>

namespace vantrellion {

class RowField : public QLineEdit {
  public:
    explicit RowField(QWidget* parent) : QLineEdit(parent) {}

    // Sets the text when it differs, showing its start unless the user is in the field.
    void ShowText(const QString& text);

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace vantrellion
