#include "desktop/PrintModule.h"

#include <dlfcn.h>

#include "boardio/LibraryPorts.h"

namespace vantrellion {

namespace {

constexpr const char* ModuleFileName = "libVantrellionPrint.so";

// The module beside the program, loaded at the first use and kept from then on.
const PrintFunctions* Module(std::string& path, std::string& why) {
    static const PrintFunctions* loaded = nullptr;
    path = DefaultPrintModulePath();
    if (!loaded) loaded = LoadPrintModule(path, why);
    return loaded;
}

}  // namespace

std::string PrintModuleMissingText(const std::string& path, const std::string& why) {
    return "Printing and SVG pictures are not available: the print module\n  " + path +
           "\ncannot be loaded (" + why +
           ").\n\nInstall Vantrellion again to put the module back beside the program.";
}

std::string DefaultPrintModulePath() {
    const std::string dir = ExecutableDirectory();
    if (dir.empty()) return ModuleFileName;
    return (dir == "/" ? dir : dir + "/") + ModuleFileName;
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
    if (!entry || !entry()) {
        ::dlclose(handle);
        why = "it lacks VantrellionPrintFunctions";
        return nullptr;
    }
    return entry();
}

bool PrintDocument(System& s, QWidget* parent, bool hasSelection, const PaintDocument& paint) {
    std::string path, why;
    const PrintFunctions* module = Module(path, why);
    if (!module) {
        s.Message({PrintModuleMissingText(path, why)});
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

bool PrintText(System& s, QWidget* parent, bool hasSelection,
               const std::function<void(QPagedPaintDevice&)>& print) {
    return PrintDocument(s, parent, hasSelection, [&print](QPagedPaintDevice& printer, int) {
        print(printer);
        return true;
    });
}

bool WriteSvgPicture(const QString& path, QSize size, const QString& title,
                     const PaintPicture& paint, std::string* moduleProblem) {
    std::string modulePath, why;
    const PrintFunctions* module = Module(modulePath, why);
    if (!module && moduleProblem) *moduleProblem = PrintModuleMissingText(modulePath, why);
    return module && module->WriteSvg(path, size, title, paint);
}

}  // namespace vantrellion
