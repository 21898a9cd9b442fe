#include <klepur/text/error.h>

namespace klepur {

Error::~Error() = default;

}  // namespace klepur
