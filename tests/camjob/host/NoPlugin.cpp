// A module, but no plug-in: it exports another function.

#include "camdata/platform/host/ZetNCPlugin.h"

ZETNC_PLUGIN_API int RunSomethingElse();

int RunSomethingElse() {
    return 0;
}
