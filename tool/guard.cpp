#include <tool/guard.h>

namespace klepur::tool {

void RefuseNewErrors(EditedFile&) {}

}  // namespace klepur::tool
