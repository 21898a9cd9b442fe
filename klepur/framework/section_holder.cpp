#include <klepur/framework/section_holder.h>

CfSectionHolder::CfSectionHolder() : topNode(nullptr, CfSection()) {}

CfSectionHolder::~CfSectionHolder() = default;
