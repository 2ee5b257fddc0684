#include "zor/runtime/object.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace ZOR_runtime {
namespace {

std::string g_died;

struct Probe : TComponent {
  explicit Probe(const char* name, TComponent* AOwner = nullptr) : TComponent(AOwner) { SetName(name); }
  ~Probe() override { g_died += Name().utf8(); }
};

class Ownership : public ::testing::Test {
 protected:
  Ownership() { g_died.clear(); }
};

TEST_F(Ownership, OwnerDeletesWhatMakeCreatedLastFirst) {
  {
    Probe owner("o");
    Make<Probe>(&owner, "a");
    TComponent* b = Make<Probe>(&owner, "b");
    EXPECT_EQ(owner.ComponentCount(), 2);
    EXPECT_EQ(owner.Components(1), b);
    EXPECT_EQ(owner.Components(2), nullptr);
    EXPECT_EQ(owner.Components(-1), nullptr);
    EXPECT_EQ(b->Owner(), &owner);
  }
  EXPECT_EQ(g_died, "oba");
}

TEST_F(Ownership, DeletedComponentLeavesItsOwner) {
  Probe owner("o");
  Make<Probe>(&owner, "a");
  TComponent* b = Make<Probe>(&owner, "b");
  Make<Probe>(&owner, "c");
  Free(b);
  EXPECT_EQ(owner.ComponentCount(), 2);
  EXPECT_EQ(owner.Components(1)->Name(), "c");
  EXPECT_EQ(g_died, "b");
}

TEST_F(Ownership, AutomaticComponentIsForgottenNotDeleted) {
  auto owner = std::make_unique<Probe>("o");
  Probe automatic("s", owner.get());
  owner.reset();
  EXPECT_EQ(g_died, "o");
  EXPECT_EQ(automatic.Owner(), nullptr);
}

TEST_F(Ownership, AutomaticComponentThatDiesFirstIsForgotten) {
  Probe owner("o");
  { Probe automatic("s", &owner); }
  EXPECT_EQ(owner.ComponentCount(), 0);
}

TEST_F(Ownership, GoesDownThroughAllGenerations) {
  {
    Probe top("1");
    auto* middle = Make<Probe>(&top, "2");
    Make<Probe>(middle, "3");
  }
  EXPECT_EQ(g_died, "123");
}

TEST_F(Ownership, ComponentMayDeleteItsSiblingWhenItDies) {
  struct Killer : Probe {
    explicit Killer(TComponent* victim_, TComponent* AOwner) : Probe("k", AOwner), victim(victim_) {}
    ~Killer() override { Free(victim); }
    TComponent* victim;
  };
  {
    Probe owner("o");
    auto* victim = Make<Probe>(&owner, "v");
    Make<Killer>(&owner, victim);
  }
  EXPECT_EQ(g_died, "ovk");
}

TEST_F(Ownership, FailedConstructionLeavesNoTrace) {
  struct Failing : TComponent {
    explicit Failing(TComponent* AOwner) : TComponent(AOwner) { throw std::runtime_error("no"); }
  };
  Probe owner("o");
  EXPECT_THROW(Make<Failing>(&owner), std::runtime_error);
  EXPECT_EQ(owner.ComponentCount(), 0);
}

TEST_F(Ownership, WithoutOwnerTheCallerDeletes) {
  const std::unique_ptr<Probe> made(Make<Probe>(nullptr, "m"));
  EXPECT_EQ(made->Owner(), nullptr);
  Free(nullptr);
}

struct Celsius : TPersistent {
  double degrees = 0.0;
  const char* ClassName() const noexcept override { return "Celsius"; }
};
struct Kelvin : TPersistent {
  double degrees = 273.15;
  void AssignTo(TPersistent* Dest) const override {
    if (auto* c = dynamic_cast<Celsius*>(Dest)) {
      c->degrees = degrees - 273.15;
    } else {
      TPersistent::AssignTo(Dest);
    }
  }
  const char* ClassName() const noexcept override { return "Kelvin"; }
};

std::string message_of_assign(TPersistent& dest, const TPersistent* source) {
  try {
    dest.Assign(source);
  } catch (const EConvertError& e) {
    return e.what();
  }
  return "";
}

TEST(Assign, AsksTheSourceWhenTheTargetDoesNotKnowIt) {
  Celsius c;
  Kelvin k;
  k.degrees = 373.15;
  c.Assign(&k);
  EXPECT_EQ(c.degrees, 100.0);
}

TEST(Assign, BetweenStrangersSaysWho) {
  Celsius c;
  Kelvin k;
  EXPECT_EQ(message_of_assign(k, &c), "Celsius cannot be assigned to Kelvin");
  EXPECT_EQ(message_of_assign(k, nullptr), "null cannot be assigned to Kelvin");
}

TEST(IsClass, ToldOfDescendantsAndNull) {
  Celsius c;
  EXPECT_TRUE(IsClass<TPersistent>(&c));
  EXPECT_FALSE(IsClass<Kelvin>(&c));
  EXPECT_FALSE(IsClass<TObject>(nullptr));
}

TEST(Objects, AreNeitherCopiedNorMoved) {
  static_assert(!std::is_copy_constructible_v<TComponent> && !std::is_move_constructible_v<TComponent>);
  static_assert(!std::is_copy_assignable_v<TComponent> && !std::is_move_assignable_v<TComponent>);
}

}  // namespace
}  // namespace ZOR_runtime
