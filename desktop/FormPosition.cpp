#include "desktop/FormPosition.h"

#include "core/clsFormCoOrdsRelay.h"
#include "desktop/QtFormWindow.h"

namespace vantrellion {

namespace {
System* registered = nullptr;
}

void RestoreFormPosition(System& s, QWidget& window) {
    QtFormWindow form(window);
    RestoreFormPosition(s, static_cast<FormWindow&>(form));
}

void SaveFormPosition(System& s, QWidget& window) {
    QtFormWindow form(window);
    SaveFormPosition(s, static_cast<FormWindow&>(form));
}

void RegisterFormPositionSystem(System* s) {
    registered = s;
}

void RestoreFormPosition(QWidget& window) {
    if (registered) RestoreFormPosition(*registered, window);
}

void SaveFormPosition(QWidget& window) {
    if (registered) SaveFormPosition(*registered, window);
}

}  // namespace vantrellion
