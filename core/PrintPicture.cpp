#include "core/PrintPicture.h"

#include <cmath>

namespace vantrellion {

namespace {

// Whole numbers as an assignment to a whole-number variable rounds them: halves to even.
int64_t Whole(double value) {
    return static_cast<int64_t>(std::nearbyint(value));
}

PictureSize ScaledToWidth(double printerWidth, double width, double height) {
    if (width <= 0) return {Whole(printerWidth), 0};
    return {Whole(printerWidth), Whole(printerWidth / width * height)};
}

}  // namespace

PictureSize PrintFormPictureSize(double printerWidth, double windowWidth, double windowHeight) {
    if (printerWidth < windowWidth) return ScaledToWidth(printerWidth, windowWidth, windowHeight);
    return {Whole(windowWidth), Whole(windowHeight)};
}

PictureSize PrintScreenPictureSize(double printerWidth, double screenWidth, double screenHeight) {
    return ScaledToWidth(printerWidth, screenWidth, screenHeight);
}

std::string PrintBitmapFileName(const std::string& machineDirectory,
                                const std::string& programFileName, const std::string& windowName,
                                PrintedPicture kind) {
    return machineDirectory + programFileName + "_" + windowName +
           (kind == PrintedPicture::Window ? "_Window" : "_Screen") + ".BMP";
}

}  // namespace vantrellion
