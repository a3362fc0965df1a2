// A plugin that does everything right and says on the debug output what happens to it.

#include <Corrade/Containers/StringView.h>
#include <Corrade/PluginManager/AbstractManager.h>
#include <Corrade/Utility/Debug.h>

#include "../AbstractCounter.h"

using namespace Corrade;

namespace {

class Counter: public AbstractCounter {
public:
    static void initialize() { Utility::Debug{} << "initialized"; }
    static void finalize() { Utility::Debug{} << "finalized"; }

    explicit Counter(PluginManager::AbstractManager& manager, const Containers::StringView& plugin):
        AbstractCounter{manager, plugin} {
        Utility::Debug{} << "constructed" << this->plugin();
    }
    ~Counter() { Utility::Debug{} << "destructed"; }

    bool canBeDeleted() override { return DELETABLE; }
    int next() override { return ++_last; }

private:
    int _last = 0;
};

struct Static {
    ~Static() { Utility::Debug{} << "unloaded"; }
} object;

}

CORRADE_PLUGIN_REGISTER(Counter, Counter, "org.vantrel.Conformance.AbstractCounter/1.0")
