#include <quarnfc/object.h>

#include "core/memory/memory.h"

CQNObjClass::CQNObjClass(const char* name, CQNObjClass* base)
    : m_name(quarnfc::CopyText(name == nullptr ? "" : name)), m_base(base) {}

CQNObjClass::~CQNObjClass() { quarnfc::FreeBuffer(m_name); }

CQNObjClass CQNObject::m_class("CQNObject", nullptr);
