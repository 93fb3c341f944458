#include <quarnfc/object.h>

#include "core/memory.h"

CQNObjClass::CQNObjClass(const char* name, CQNObjClass* base)
    : m_name(quarnfc::CopyText(name == nullptr ? "" : name)), m_base(base) {}

CQNObjClass::~CQNObjClass() { quarnfc::FreeBuffer(m_name); }

// The records of the library's classes, each after its base.
CQNObjClass CQNObject::m_class("CQNObject", nullptr);
