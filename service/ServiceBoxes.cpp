#include "service/ServiceBoxes.h"

#include "logging/EventLog.h"
#include "service/ServiceConsole.h"

namespace vantrellion {

Answer ServiceBoxes::Show(const MessageBoxRequest& request) {
    last_ = request;
    ++count_;
    const Answer answer = UnattendedAnswer(request);
    const std::string caption = AnswerCaption(request, answer);
    const std::string box = request.Title + ": " + OneLine(request.Prompt);
    ServiceMessage(BoxPriority(request.BoxIcon), box + " [answered " + caption + "]");
    WriteEventLog(s_, "Box", "\"" + box + "\" answered \"" + caption + "\"");
    return answer;
}

}  // namespace vantrellion
