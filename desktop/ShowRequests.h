// A second start of the program asks the running one to show its window. The running program
// listens on a datagram socket beside its instance lock, in the machine directory; the second
// start sends one datagram there and quits.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <string>

namespace vantrellion {

class ShowRequestListener {
  public:
    // Listens while the object lives; onRequest runs on the event loop for each request.
    // Without a socket (a directory that takes none) the program simply cannot be raised.
    ShowRequestListener(const std::string& machineDirectory, std::function<void()> onRequest);
    ~ShowRequestListener();
    ShowRequestListener(const ShowRequestListener&) = delete;
    ShowRequestListener& operator=(const ShowRequestListener&) = delete;

  private:
    int fd_ = -1;
    std::string path_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

// Sends the request to the program that runs on the machine directory; false when none listens.
bool RequestRunningProgramToShow(const std::string& machineDirectory);

}  // namespace vantrellion
