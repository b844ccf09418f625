#include "configuration/clsRunOnBootOnceAlways.h"

#include "configuration/modRegAPI.h"

namespace vantrellion {

namespace {

int16_t WriteRunMe(System& s, const char* key, const std::string& path) {
    RegWriteValue(s, HKEY_LOCAL_MACHINE, key, "String", RunMeValueName, path + " " + RunMeToken);
    return 0;
}

}  // namespace

int16_t SetRunMeAlways(System& s, const std::string& path) {
    return WriteRunMe(s, RunKey, path);
}

int16_t SetRunMeOnce(System& s, const std::string& path) {
    return WriteRunMe(s, RunOnceKey, path);
}

int16_t SetRunMeNever(System& s) {
    for (RegRoot root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        for (const char* key : {RunKey, RunOnceKey, RunServicesKey, RunOnceServicesKey}) {
            const std::string found = RegReadWithSentinels(s, root, key, RunMeValueName);
            if (!IsRegSentinel(found)) RegDeleteValue(s, root, key, RunMeValueName);
        }
    }
    return 0;
}

int16_t SetRunMeAlwaysServices(System& s, const std::string& path) {
    return WriteRunMe(s, RunKey, path);
}

int16_t SetRunMeOnceServices(System& s, const std::string& path) {
    return WriteRunMe(s, RunServicesOnceKey, path);
}

}  // namespace vantrellion
