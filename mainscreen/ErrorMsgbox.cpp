#include "mainscreen/ErrorMsgbox.h"

namespace vantrellion {

void ErrorMsgbox_DefaultError(System& s, const std::string& description, int number,
                              const std::string& source) {
    MessageBoxRequest box;
    box.Prompt = description + "\r\n" + std::to_string(number) + "\r\n";
    box.BoxIcon = Icon::Exclamation;
    box.Title = source;
    s.Message(box);
}

}  // namespace vantrellion
