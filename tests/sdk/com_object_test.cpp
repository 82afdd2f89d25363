#include "sdk/com/com_object.h"

#include <gtest/gtest.h>
#include <thread>
#include <utility>
#include <vector>

#include "sdk/com/com_ptr.h"
#include "tests/support/reference_count.h"

namespace ruvex::test {

namespace {

struct IShape : IUnknown {
    virtual int corners() = 0;

protected:
    ~IShape() = default;
};

/// Derives from another interface.
struct IColouredShape : IShape {
    virtual int colour() = 0;

protected:
    ~IColouredShape() = default;
};

struct INamed : IUnknown {
    virtual char letter() = 0;

protected:
    ~INamed() = default;
};

}  // namespace

inline constexpr GUID kShapeId = guidFromText("77A1C004-0000-4000-8000-000000000001");
inline constexpr GUID kColouredShapeId = guidFromText("77A1C004-0000-4000-8000-000000000002");
inline constexpr GUID kNamedId = guidFromText("77A1C004-0000-4000-8000-000000000003");
inline constexpr GUID kCountedId = guidFromText("77A1C004-0000-4000-8000-000000000004");

}  // namespace ruvex::test

template <>
struct DSInterfaceTraits<ruvex::test::IShape> : DSInterface<ruvex::test::kShapeId> {};
template <>
struct DSInterfaceTraits<ruvex::test::IColouredShape>
    : DSInterface<ruvex::test::kColouredShapeId, ruvex::test::IShape> {};
template <>
struct DSInterfaceTraits<ruvex::test::INamed> : DSInterface<ruvex::test::kNamedId> {};

namespace ruvex::test {
namespace {

class Square : public ComObject<IColouredShape, IClassFactory> {
public:
    static inline int alive = 0;

    Square() { ++alive; }
    Square(const Square& other) : ComObject(other) { ++alive; }

    int corners() override { return 4; }
    int colour() override { return 7; }
    HRESULT CreateInstance(IUnknown*, const GUID&, void**) override { return E_NOTIMPL; }
    HRESULT LockServer(BOOL) override { return S_OK; }

protected:
    ~Square() override { --alive; }
};

class NamedSquare final : public ComObjectWith<Square, INamed> {
public:
    char letter() override { return 'q'; }
};

template <class T>
ComPtr<T> makeObject() {
    return ComPtr<T>::attach(new T);
}

TEST(ComObject, StartsWithOneReferenceAndEndsWithTheLast) {
    auto* const square = new Square;
    EXPECT_EQ(Square::alive, 1);
    EXPECT_EQ(square->AddRef(), 2u);
    EXPECT_EQ(square->Release(), 1u);
    EXPECT_EQ(Square::alive, 1);
    EXPECT_EQ(square->Release(), 0u);
    EXPECT_EQ(Square::alive, 0);
}

TEST(ComObject, GivesEachInterfaceWithAReference) {
    const auto square = makeObject<Square>();
    const auto shape = square.query<IColouredShape>();
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->colour(), 7);
    EXPECT_EQ(countOf(*shape), 2u);
    const auto factory = square.query<IClassFactory>();
    ASSERT_TRUE(factory);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(countOf(*factory), 3u);
}

TEST(ComObject, GivesTheBaseOfAnInterface) {
    const auto shape = makeObject<Square>().query<IShape>();
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->corners(), 4);
}

TEST(ComObject, IsTheSameUnknownFromEveryInterface) {
    const auto square = makeObject<NamedSquare>();
    const auto unknown = square.query<IUnknown>();
    EXPECT_EQ(unknown.get(), static_cast<IColouredShape*>(square.get()));
    EXPECT_EQ(square.query<IShape>().query<IUnknown>(), unknown);
    EXPECT_EQ(square.query<IClassFactory>().query<IUnknown>(), unknown);
    EXPECT_EQ(square.query<INamed>().query<IUnknown>(), unknown);
}

TEST(ComObject, SetsTheOutputToNullForAnotherIdentifier) {
    const auto square = makeObject<NamedSquare>();
    void* out = &out;
    EXPECT_EQ(square->QueryInterface(kCountedId, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(makeObject<Square>()->QueryInterface(kNamedId, &out), E_NOINTERFACE);
    EXPECT_EQ(countOf(*square.query<IUnknown>()), 2u) << "a failed query takes no reference";
}

TEST(ComObject, RefusesANullOutput) {
    const auto square = makeObject<NamedSquare>();
    for (const GUID& id : {IID_IUnknown, kShapeId, kNamedId, kCountedId}) {
        EXPECT_EQ(square->QueryInterface(id, nullptr), E_POINTER) << toText(id);
    }
    EXPECT_EQ(countOf(*square.query<IUnknown>()), 2u);
}

TEST(ComObject, ACopyHasAReferenceOfItsOwn) {
    const auto square = makeObject<Square>();
    const ComPtr<Square> second = square;
    const auto copy = ComPtr<Square>::attach(new Square(*square));
    EXPECT_EQ(countOf(*copy.query<IUnknown>()), 2u);
    EXPECT_EQ(countOf(*square.query<IUnknown>()), 3u);
}

TEST(ComObject, EndsThroughAnyInterface) {
    INamed* const named = makeObject<NamedSquare>().query<INamed>().detach();
    EXPECT_EQ(Square::alive, 1);
    EXPECT_EQ(named->Release(), 0u);
    EXPECT_EQ(Square::alive, 0);
}

TEST(ComObjectWith, AddsInterfacesToThoseOfItsBase) {
    const auto square = makeObject<NamedSquare>();
    const auto named = square.query<INamed>();
    ASSERT_TRUE(named);
    EXPECT_EQ(named->letter(), 'q');
    EXPECT_EQ(countOf(*named), 2u);
    EXPECT_TRUE(square.query<IShape>());
    EXPECT_TRUE(square.query<IClassFactory>());
}

TEST(ComObject, CountsReferencesFromManyThreads) {
    const auto square = makeObject<NamedSquare>();
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&square] {
                for (int n = 0; n < 1000; ++n) ComPtr<INamed> taken = square.query<INamed>();
            });
        }
    }
    EXPECT_EQ(countOf(*square.query<IUnknown>()), 2u);
}

}  // namespace
}  // namespace ruvex::test
