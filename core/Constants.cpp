#include "core/Constants.h"

namespace vantrellion {

std::string ComposeFileVersion() {
    return std::string("FV.2001.05.01") + "|.b" + std::to_string(LastBoard) + ".r" +
           std::to_string(LastRelay) + ".t" + std::to_string(LastTimePair);
}

}  // namespace vantrellion
