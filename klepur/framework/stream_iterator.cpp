#include <klepur/framework/stream_iterator.h>

StreamIterator::~StreamIterator() = default;

void StreamIterator::CloseFile() {}
