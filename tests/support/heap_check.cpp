#include <gtest/gtest.h>
#include <windows.h>

#include <malloc.h>

namespace {

/// Looks through the heap after every test: a block that was written past its end is found at the test that
/// did it. Linked into every program.
class Heap_Check : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& test) override {
        const auto heap = reinterpret_cast<HANDLE>(_get_heap_handle());
        if (!HeapValidate(heap, 0, nullptr)) ADD_FAILURE() << "the heap is damaged after " << test.name();
    }
};

[[maybe_unused]] const bool Added = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new Heap_Check);
    return true;
}();

}  // namespace
