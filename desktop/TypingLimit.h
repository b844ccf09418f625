// A limit on what a user types or pastes into a line edit, in place of the edit's maximum
// length. A maximum length also cuts a text that the program puts into the field, silently,
// and the cut text is then taken for the user's entry when the field is left. With this limit
// a text set by the program stays whole however long it is (a name from a Run File or from an
// older configuration), and typing only refuses to make a text longer than the limit.
#pragma once

#include <QLineEdit>
#include <QValidator>

namespace vantrellion {

class TypingLimit : public QValidator {
  public:
    // Installs itself on the edit, which owns it.
    TypingLimit(QLineEdit* edit, int limit);

    State validate(QString& input, int& pos) const override;

  private:
    friend void SetWholeText(QLineEdit* edit, const QString& text);

    QLineEdit* edit_;
    int limit_;
    mutable qsizetype held_ = 0;  // the length of the text before the change being validated
    bool programSets_ = false;
};

// Puts a text into an edit as the program does: whole, whatever the edit's typing limit, also
// while the user is in the field.
void SetWholeText(QLineEdit* edit, const QString& text);

}  // namespace vantrellion
