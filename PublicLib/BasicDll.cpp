#include "PublicLib/BasicDll.h"

namespace jsw {

ModuleTable& ModuleTable::instance() {
    static ModuleTable table;
    return table;
}

}  // namespace jsw
