// Writes the configuration that a first run accepted with all defaults leaves behind, into the
// store of a given machine directory, so that the program can be started and measured
// unattended: emulation mode, logging on.
//   build/bin/bench_prepare_store DIR/     (DIR/store.db is written)
#include <cstdio>
#include <string>

#include "configuration/CheckConfigurationAtStart.h"
#include "configuration/KeyValueStore.h"
#include "configuration/screens/ConfigScreen.h"
#include "configuration/screens/ConfigScreenLogic.h"
#include "core/MachineDirectory.h"
#include "support/Fakes.h"

using namespace vantrellion;

int main(int argc, char** argv) {
    if (argc != 2 || std::string(argv[1]).empty() || std::string(argv[1]).back() != '/') {
        std::fprintf(stderr, "usage: %s MACHINE-DIRECTORY/\n", argv[0]);
        return 2;
    }
    const std::string dir = argv[1];
    if (!EnsureDirectory(dir)) {
        std::fprintf(stderr, "cannot create %s\n", dir.c_str());
        return 1;
    }
    KeyValueStore store(dir + "store.db");
    test::TestSystem t;
    t.s.modRelay = ModRelay{};
    t.s.platform.store = &store;
    t.s.platform.machineDirectory = dir;
    t.s.platform.documentsDirectory = dir;
    ConfigScreen screen = NewConfigScreen(ConfigScreenKind::Configuration);
    ConfigForm_Load(t.s, screen);
    cmdSave_Click(t.s, screen);
    ForceFirstRunSwitches(t.s);
    for (const MessageBoxRequest& m : t.messages.shown)
        std::fprintf(stderr, "%s\n", m.Prompt.c_str());
    return t.messages.shown.empty() ? 0 : 1;
}
