#include <quarnfc/collection.h>
#include <quarnfc/object.h>
#include <quarnfc/object_collection.h>
#include <quarnfc/string_collection.h>

#include "core/memory.h"

CQNObjClass::CQNObjClass(const char* name, CQNObjClass* base)
    : m_name(quarnfc::CopyText(name == nullptr ? "" : name)), m_base(base) {}

CQNObjClass::~CQNObjClass() { quarnfc::FreeBuffer(m_name); }

// The records of the library's classes, each after its base.
CQNObjClass CQNObject::m_class("CQNObject", nullptr);
CQNObjClass CQNCollection::m_class("CQNCollection", &CQNObject::m_class);
CQNObjClass CQNStringCollection::m_class("CQNStringCollection", &CQNCollection::m_class);
CQNObjClass CQNObjectCollection::m_class("CQNObjectCollection", &CQNCollection::m_class);
