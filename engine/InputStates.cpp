#include "engine/InputStates.h"

#include "boardio/PortAccess.h"
#include "core/FatalError.h"

namespace vantrellion {

namespace {
constexpr int16_t kCountLimit = 32000;
}

void ShowInputStates(System& s, const PortBytes& inputBytes) {
    const auto& m = s.modRelay;
    for (int b = 0; b < static_cast<int>(inputBytes.size()); ++b) {
        for (int r = 0; r <= 7; ++r) {
            const int i = RecordIndex(b, r);
            RelayRecord& rec = s.frmRelay.Relay[i];
            const int16_t mask = GetANDOR(s, r);
            if ((inputBytes[b] & mask) == mask) {
                s.display().SetCounterBackground(i, m.ColorInputON);
                // A count is a rising edge seen by two successive reads; 9 (not read yet)
                // is not 0, so an input already on at the first read does not count.
                if (rec.CounterOn == -1 && rec.InputState == 0 && rec.Count < kCountLimit) {
                    rec.Count = CheckedAdd16(rec.Count, 1);
                    s.display().SetCounterCaption(i, std::to_string(rec.Count));
                }
                rec.InputState = 1;
            } else {
                s.display().SetCounterBackground(i, m.ColorInputOFF);
                rec.InputState = 0;
            }
        }
    }
}

std::string FormatPortByte(uint8_t byte) {
    std::string text;
    for (int r = 0; r <= 7; ++r) {
        if (r > 0) text += ' ';
        text += (byte & (1 << r)) ? static_cast<char>('1' + r) : '-';
    }
    return text;
}

PortTexts FormatPortBits(const PortBytes& bytes) {
    PortTexts texts;
    for (size_t b = 0; b < bytes.size(); ++b)
        texts[b] = FormatPortByte(bytes[b]);
    return texts;
}

void ShowStateTexts(System& s, const PortTexts& relayTexts, const PortTexts& inputTexts) {
    for (size_t b = 0; b < relayTexts.size(); ++b) {
        const std::string number = std::to_string(b + 1);
        s.display().SetStateDisplayCaption(b, "RelayState " + number + " : " + relayTexts[b]);
        s.display().SetInputDisplayCaption(b, "Inputstate " + number + " : " + inputTexts[b]);
    }
}

}  // namespace vantrellion
