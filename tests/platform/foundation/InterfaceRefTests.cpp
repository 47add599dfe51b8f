#include <gtest/gtest.h>

#include "Fnd/InterfaceRef.h"

namespace {

class IClip : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID() {
        static const auto id = Fnd::MakeInterfaceID("{0B3C7A52-61D4-4E0F-9A57-1C2D3E4F5A6B}");
        return id;
    }
    virtual int FrameCount() const = 0;
};

// Implemented by nobody, to see a query fail.
class IAudio : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID() {
        static const auto id = Fnd::MakeInterfaceID("{9E8D7C6B-5A49-4382-A1B0-C9D8E7F6A5B4}");
        return id;
    }
};

class Clip : public IClip {
public:
    explicit Clip(int& liveCount) : liveCount_(liveCount) { ++liveCount_; }
    ~Clip() override { --liveCount_; }

    void AddRef() override { ++references; }
    void Release() override {
        if (--references == 0)
            delete this;
    }
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override {
        if (id == IClip::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID()) {
            AddRef();
            *out = static_cast<IClip*>(this);
            return Fnd::kQueryOK;
        }
        *out = nullptr;
        return Fnd::kQueryNoInterface;
    }
    Fnd::FndUnknown* GetRawObject() override { return this; }
    int FrameCount() const override { return 24; }

    int references = 1; // the creator's
private:
    int& liveCount_;
};

} // namespace

TEST(InterfaceRef, CountsReferencesAndReleasesTheLast) {
    int live = 0;
    auto* clip = new Clip(live);
    {
        auto adopted = Fnd::InterfaceRef<IClip>::Adopt(clip);
        EXPECT_EQ(clip->references, 1);
        {
            Fnd::InterfaceRef<IClip> shared(clip);
            Fnd::InterfaceRef<IClip> copy = shared;
            EXPECT_EQ(clip->references, 3);
            Fnd::InterfaceRef<IClip> moved = std::move(copy);
            EXPECT_EQ(clip->references, 3);
            EXPECT_FALSE(copy);
            EXPECT_TRUE(moved == adopted);
            moved.reset();
            EXPECT_EQ(clip->references, 2);
        }
        EXPECT_EQ(clip->references, 1);
        EXPECT_EQ(adopted->FrameCount(), 24);
    }
    EXPECT_EQ(live, 0);
}

TEST(InterfaceRef, QueryFindsOnlyImplementedInterfaces) {
    int live = 0;
    auto clip = Fnd::InterfaceRef<IClip>::Adopt(new Clip(live));
    auto* raw = static_cast<Clip*>(clip.get());

    auto unknown = Fnd::InterfaceRef<Fnd::FndUnknown>::Query(clip);
    ASSERT_TRUE(unknown);
    EXPECT_EQ(raw->references, 2);
    auto back = Fnd::InterfaceRef<IClip>::Query(unknown);
    EXPECT_TRUE(back == clip);
    EXPECT_EQ(raw->references, 3);

    auto audio = Fnd::InterfaceRef<IAudio>::Query(clip);
    EXPECT_FALSE(audio);
    EXPECT_EQ(raw->references, 3);
    EXPECT_FALSE(Fnd::InterfaceRef<IClip>::Query(Fnd::InterfaceRef<IAudio>()));
}

TEST(InterfaceRef, UsingANullReferenceThrows) {
    Fnd::InterfaceRef<IClip> empty;
    EXPECT_EQ(empty.get(), nullptr);
    EXPECT_THROW(empty->FrameCount(), Fnd::NullInterfaceException);
    EXPECT_THROW((void)*empty, Fnd::NullInterfaceException);
    Fnd::InterfaceRef<IClip> fromNull(nullptr);
    EXPECT_TRUE(fromNull == empty);
}
