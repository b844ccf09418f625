#include "core/SharedState.h"

namespace vantrellion {

Answer System::Message(const MessageBoxRequest& r) {
    if (deferBoxes) {
        deferredBoxes.push_back(r);
        return DefaultAnswer(r);
    }
    return platform.messages->Show(r);
}

}  // namespace vantrellion
