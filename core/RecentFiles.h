// What the File commands tell the recent files list: a Run File was opened, or saved under a
// name chosen in the Save As dialog; and what the start asks of it: the last one used.
#pragma once

#include <string>

namespace vantrellion {

class RecentFiles {
  public:
    virtual ~RecentFiles() = default;
    virtual void FileUsed(const std::string& fullName) = 0;
    // The first name of the list, "" when it is empty.
    virtual std::string MostRecent() = 0;
};

}  // namespace vantrellion
