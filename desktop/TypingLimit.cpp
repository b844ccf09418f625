#include "desktop/TypingLimit.h"

#include <algorithm>

namespace vantrellion {

TypingLimit::TypingLimit(QLineEdit* edit, int limit)
    : QValidator(edit), edit_(edit), limit_(limit), held_(edit->text().size()) {
    edit->setValidator(this);
}

QValidator::State TypingLimit::validate(QString& input, int& pos) const {
    // Every change of the text passes here, the program's too (without focus, or through
    // SetWholeText); only the user's typing is held to the limit.
    const bool typing = edit_->hasFocus() && !programSets_;
    if (typing && input.size() > limit_ && input.size() > held_) {
        // As a maximum length does: what was just typed or pasted, before the cursor, is cut
        // to what the limit leaves; a longer text held before keeps its length.
        const qsizetype keep = std::max<qsizetype>(limit_, held_);
        const qsizetype excess = input.size() - keep;
        const qsizetype from = std::max<qsizetype>(0, pos - excess);
        input.remove(from, excess);
        pos = static_cast<int>(from);
    }
    held_ = input.size();
    return Acceptable;
}

void SetWholeText(QLineEdit* edit, const QString& text) {
    auto* limit = dynamic_cast<TypingLimit*>(const_cast<QValidator*>(edit->validator()));
    if (limit) limit->programSets_ = true;
    if (edit->text() != text) edit->setText(text);
    if (limit) limit->programSets_ = false;
}

}  // namespace vantrellion
