#include <gtest/gtest.h>

#include "Fnd/InterfaceRef.h"

namespace igd::test {

namespace {

struct IClip : Fnd::FndUnknown {
    static const Fnd::InterfaceID& GetInterfaceID() {
        static const auto id = Fnd::MakeInterfaceID("{0B3C7A52-61D4-4E0F-9A57-1C2D3E4F5A6B}");
        return id;
    }
    virtual int FrameCount() const = 0;
};

// Implemented by nobody, to see a query fail.
struct IAudio : Fnd::FndUnknown {
    static const Fnd::InterfaceID& GetInterfaceID() {
        static const auto id = Fnd::MakeInterfaceID("{9E8D7C6B-5A49-4382-A1B0-C9D8E7F6A5B4}");
        return id;
    }
};

struct Clip : IClip {
    explicit Clip(int& live) : live(live) { ++live; }
    ~Clip() override { --live; }
    void AddRef() override { ++references; }
    void Release() override {
        if (--references == 0)
            delete this;
    }
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override {
        const bool known = id == IClip::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID();
        *out = known ? static_cast<IClip*>(this) : nullptr;
        if (known)
            AddRef();
        return known ? Fnd::kQueryOK : Fnd::kQueryNoInterface;
    }
    Fnd::FndUnknown* GetRawObject() override { return this; }
    int FrameCount() const override { return 24; }

    int& live;
    int references = 1; // the creator's
};

} // namespace

TEST(InterfaceRef, CountsReferencesReleasesTheLastAndRefusesUseWhenNull) {
    int live = 0;
    auto* clip = new Clip(live);
    {
        auto adopted = Fnd::InterfaceRef<IClip>::Adopt(clip);
        {
            Fnd::InterfaceRef<IClip> copy(clip);
            Fnd::InterfaceRef<IClip> moved = std::move(copy);
            EXPECT_EQ(clip->references, 2);
            EXPECT_FALSE(copy);

            auto unknown = Fnd::InterfaceRef<Fnd::FndUnknown>::Query(moved);
            EXPECT_TRUE(Fnd::InterfaceRef<IClip>::Query(unknown) == adopted);
            EXPECT_FALSE(Fnd::InterfaceRef<IAudio>::Query(moved));
            EXPECT_EQ(clip->references, 3) << "a failed query holds no reference";
        }
        EXPECT_EQ(clip->references, 1);
        EXPECT_EQ(adopted->FrameCount(), 24);
    }
    EXPECT_EQ(live, 0);

    Fnd::InterfaceRef<IClip> empty(nullptr);
    EXPECT_THROW(empty->FrameCount(), Fnd::NullInterfaceException);
    EXPECT_FALSE(Fnd::InterfaceRef<IClip>::Query(Fnd::InterfaceRef<IAudio>()));
}

} // namespace igd::test
