// An Alt+letter that opens no menu types nothing. Qt hands an Alt+letter that no menu or button
// takes to the control with the focus, and a text field would insert the letter as if Alt were
// not held. While the guard lives, such a key is dropped before it reaches any control. Ctrl+Alt
// stays untouched: on some keyboards it is AltGr, which types characters.
#pragma once

#include <QObject>

namespace vantrellion {

class AltLetterGuard : public QObject {
  public:
    // Watches every key of the application from its creation to its end.
    AltLetterGuard();
    ~AltLetterGuard() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace vantrellion
