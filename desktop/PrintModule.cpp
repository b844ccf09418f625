#include "desktop/PrintModule.h"

#include <dlfcn.h>

#include "boardio/LibraryPorts.h"

namespace vantrellion {

namespace {

// The module beside the program, loaded at the first use and kept from then on; when it
// cannot be loaded, problem gets the box's text.
const PrintFunctions* Module(std::string& problem) {
    static const PrintFunctions* loaded = nullptr;
    if (!loaded) {
        const std::string path = DefaultPrintModulePath();
        std::string why;
        loaded = LoadPrintModule(path, why);
        if (!loaded) problem = PrintModuleMissingText(path, why);
    }
    return loaded;
}

}  // namespace

std::string PrintModuleMissingText(const std::string& path, const std::string& why) {
    return "Printing and SVG pictures are not available: the print module\n  " + path +
           "\ncannot be loaded (" + why +
           ").\n\nInstall Vantrellion again to put the module back beside the program.";
}

std::string DefaultPrintModulePath() {
    return BesideProgram("libVantrellionPrint.so");
}

const PrintFunctions* LoadPrintModule(const std::string& path, std::string& why) {
    // Never closed once loaded: Qt keeps objects of the print support's classes (the printer
    // plugins) for the rest of the run.
    void* handle = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        const char* error = ::dlerror();
        why = error ? error : "unknown reason";
        return nullptr;
    }
    using Entry = const PrintFunctions* (*)();
    auto entry = reinterpret_cast<Entry>(::dlsym(handle, "VantrellionPrintFunctions"));
    const PrintFunctions* functions = entry ? entry() : nullptr;
    if (!functions) {
        ::dlclose(handle);
        why = "it lacks VantrellionPrintFunctions";
    }
    return functions;
}

bool PrintDocument(System& s, QWidget* parent, bool hasSelection, const PaintDocument& paint) {
    std::string problem;
    const PrintFunctions* module = Module(problem);
    if (!module) {
        s.Message({problem});
        return false;
    }
    switch (module->Print(parent, hasSelection, paint)) {
        case PrintOutcome::Printed:
            return true;
        case PrintOutcome::Cancelled:
            s.Message({PrintCancelledText});
            return false;
        case PrintOutcome::NoPrinter:
            break;
    }
    s.Message({NoPrinterText});
    return false;
}

bool WriteSvgPicture(const QString& path, QSize size, const QString& title,
                     const PaintPicture& paint, std::string* moduleProblem) {
    std::string problem;
    const PrintFunctions* module = Module(problem);
    if (moduleProblem) *moduleProblem = problem;
    return module && module->WriteSvg(path, size, title, paint);
}

}  // namespace vantrellion
