#include <afx.h>

#include <new>

CObject::~CObject() = default;

CRuntimeClass* CObject::GetRuntimeClass() const
{
    static CRuntimeClass runtimeClass{"CObject", sizeof(CObject)};
    return &runtimeClass;
}

void CObject::Serialize(CArchive& /*ar*/) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& /*dc*/) const {}

void* CObject::operator new(std::size_t size)
{
    void* const object = ::operator new(size, std::nothrow);
    if (object == nullptr)
        AfxThrowMemoryException();
    return object;
}

void CObject::operator delete(void* object) noexcept
{
    ::operator delete(object);
}
