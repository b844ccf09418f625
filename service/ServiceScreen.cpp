#include "service/ServiceScreen.h"

namespace vantrellion {

void ServiceScreen::SetText(Control c, int index, const std::string& text) {
    auto it = texts_.find({c, index});
    if (it == texts_.end())
        texts_.emplace(std::make_pair(c, index), text);
    else if (it->second != text)
        it->second = text;
}

std::string ServiceScreen::Text(Control c, int index) const {
    auto it = texts_.find({c, index});
    return it == texts_.end() ? std::string() : it->second;
}

}  // namespace vantrellion
