// Writes the configuration that a first run accepted with all defaults leaves behind, into the
// store of a given machine directory, so that the program can be started and measured
// unattended: emulation mode, logging on. With a second argument it also writes the heavy
// schedule of the tick benchmark (all 48 pairs set, every even/odd code) as a Run File.
//   build/bin/bench_prepare_store DIR/ [HEAVY.run]     (DIR/store.db is written)
#include <cstdio>
#include <string>

#include "../HeavySchedule.h"
#include "configuration/CheckConfigurationAtStart.h"
#include "configuration/KeyValueStore.h"
#include "configuration/screens/ConfigScreen.h"
#include "configuration/screens/ConfigScreenLogic.h"
#include "core/MachineDirectory.h"
#include "runfile/RunFileSave.h"
#include "support/Fakes.h"

using namespace vantrellion;

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3 || std::string(argv[1]).empty() ||
        std::string(argv[1]).back() != '/') {
        std::fprintf(stderr, "usage: %s MACHINE-DIRECTORY/ [HEAVY.run]\n", argv[0]);
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
    if (argc == 3) {
        FillHeavySchedule(t);
        const std::string run = argv[2];
        const size_t slash = run.rfind('/');
        SaveRunFile(t.s, run.substr(0, slash + 1), run.substr(slash + 1));
    }
    for (const MessageBoxRequest& m : t.messages.shown)
        std::fprintf(stderr, "%s\n", m.Prompt.c_str());
    return t.messages.shown.empty() ? 0 : 1;
}
