#include "desktop/AltLetterGuard.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace vantrellion {

AltLetterGuard::AltLetterGuard() {
    setObjectName("AltLetterGuard");
    QCoreApplication::instance()->installEventFilter(this);
}

AltLetterGuard::~AltLetterGuard() {
    if (QCoreApplication* app = QCoreApplication::instance()) app->removeEventFilter(this);
}

bool AltLetterGuard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers held = key->modifiers();
    // The shortcuts (the menus' mnemonics among them) have had their turn before the key is
    // sent: what arrives here is an Alt+letter that nothing took.
    const bool altOnly =
        (held & Qt::AltModifier) && !(held & (Qt::ControlModifier | Qt::MetaModifier));
    const QString text = key->text();
    return altOnly && !text.isEmpty() && text.at(0).isPrint();
}

}  // namespace vantrellion
