// The rules of a printed window or screen that need no window: the size of the picture on the
// page, and the name of the bitmap copy in the machine directory.
#pragma once

#include <cstdint>
#include <string>

namespace vantrellion {

struct PictureSize {
    int64_t Width = 0, Height = 0;
    bool operator==(const PictureSize&) const = default;
};

// A window keeps its own size unless it is wider than the printer's page, which scales it down
// in proportion to the page width. All lengths in one unit (twips); results rounded to whole
// numbers, halves to even.
PictureSize PrintFormPictureSize(double printerWidth, double windowWidth, double windowHeight);

// The screen always fills the page width, in proportion, also when it is narrower.
PictureSize PrintScreenPictureSize(double printerWidth, double screenWidth, double screenHeight);

enum class PrintedPicture { Window, Screen };

// "<machine directory><program>_<window>_Window.BMP", or "_Screen.BMP" for the whole screen.
// A later print of the same window overwrites the file.
std::string PrintBitmapFileName(const std::string& machineDirectory,
                                const std::string& programFileName, const std::string& windowName,
                                PrintedPicture kind);

}  // namespace vantrellion
