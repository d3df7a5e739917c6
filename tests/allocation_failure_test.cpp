// Out of memory, at every allocation in turn: nothing crashes, nothing leaks, no file is lost, and the table
// can be loaded again afterwards. Replaces operator new, so it is a program of its own.
#include "support/LayoutBytes.h"
#include "support/MessageRecorder.h"
#include "support/ScriptedModel.h"
#include "support/TempPrefix.h"

#include <model/Host.h>

#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace
{

// Allocations until one fails; below 0 none does.
long allocationsLeft = -1;

void* Allocate(std::size_t size) noexcept
{
    if (allocationsLeft >= 0 && allocationsLeft-- == 0)
        return nullptr;
    return std::malloc(size > 0 ? size : 1);
}

void* AllocateOrThrow(std::size_t size)
{
    void* const memory = Allocate(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

} // namespace

void* operator new(std::size_t size)
{
    return AllocateOrThrow(size);
}
void* operator new[](std::size_t size)
{
    return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace
{

constexpr const TCHAR* layout = _T("C:\\Style.Atlas");

class AllocationFailure : public testing::Test
{
protected:
    AllocationFailure()
    {
        test::SetUnits({{0, 1, 1, 0, 0}, {0, 1, 2, 0, 0}, {0, 1, 2, 1, 0}, {0, 2, 0, 0, 0}});
        g_ApplicationName = _T("Bench");
        m_prefix.MakeFolder();
        m_atlas.ColumnCount = 2;
        m_atlas.SetRegistryPath(_T("key"));
        m_atlas.BuildCatalogue();
        m_atlas.Save(layout);
        m_atlas.SetFilePath(layout);
        m_stored = test::ReadWhole(m_prefix.Native("Style.Atlas"));
    }
    ~AllocationFailure() override { g_ApplicationName.Empty(); }

    // Runs the operation again and again, each time with the next allocation failing, until none is left to
    // fail. Nothing but the framework's exceptions comes out of it.
    template <class Operation> void FailEach(Operation operation)
    {
        long failures = 0;
        for (;; ++failures) {
            allocationsLeft = failures;
            try {
                operation();
            } catch (CException* e) {
                e->Delete();
            }
            const bool ranOut = allocationsLeft < 0;
            allocationsLeft = -1;
            if (!ranOut)
                break;
            ASSERT_EQ(test::ReadWhole(m_prefix.Native("Style.Atlas")), m_stored) << failures;
        }
        EXPECT_GT(failures, 3);
        EXPECT_EQ(m_atlas.Load({}), 0);
        EXPECT_EQ(test::BytesOf(m_atlas), m_stored);
        EXPECT_EQ(test::EntryCount(m_prefix.Native()), 1);
    }

    test::TempPrefix m_prefix;
    test::MessageRecorder m_messages;
    k_StyleAtlas m_atlas;
    std::string m_stored;
};

TEST_F(AllocationFailure, WhileLoadingAndSaving)
{
    FailEach([this] { m_atlas.Load({}); });
    FailEach([this] { m_atlas.Load(_T("C:\\none")); });
    FailEach([this] { m_atlas.Save({}); });
}

TEST_F(AllocationFailure, AnOpeningThatThrowsIsToldAndEndsTheSave)
{
    const CString path = layout;
    allocationsLeft = 0;
    EXPECT_FALSE(m_atlas.Save(path));
    allocationsLeft = -1;
    EXPECT_EQ(m_messages.Messages(),
              std::vector(1, test::Message{u"Cannot save style atlas", u"Error", MB_ICONEXCLAMATION}));
}

TEST_F(AllocationFailure, WhileCopyingTheTableAndChangingTheUser)
{
    k_StyleAtlas copy;
    FailEach([&] { copy.Assign(m_atlas); });
    EXPECT_EQ(test::BytesOf(copy), m_stored);
    FailEach([this] {
        m_atlas.FilePath = layout;
        m_atlas.ChangeUserInfo(_T("S-1"), _T("key"));
    });
}

} // namespace
