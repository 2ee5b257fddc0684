#include "zor/base/errors.h"

#include <gtest/gtest.h>

#include "tests/message_of.h"
#include "zor/base/memory_guard.h"

namespace ZOR_zorbase {
namespace {

using namespace ZOR_runtime;

template <class Action>
std::string message_of(Action action) {
  return zor::test::message_of<std::exception>(action);
}

TEST(Messages, OfAComponentCarryItsNameOfThatMoment) {
  TComponent component;
  const auto fail = [&] { zor::detail::Fail<EZORError>(component, "not enough memory"); };
  EXPECT_EQ(message_of(fail), "Component \"\": not enough memory");
  component.SetName("Vector1");
  EXPECT_EQ(message_of(fail), "Component \"Vector1\": not enough memory");
  component.SetName("a \"b\" ß");
  EXPECT_EQ(message_of(fail), "Component \"a \"b\" ß\": not enough memory") << "quotes are not escaped";
}

TEST(Messages, OfARoutineAreOneText) {
  TComponent component;
  component.SetName("V");
  EXPECT_EQ(message_of([&] { zor::detail::Fail<EZORError>(component, "Sum", "no"); }), "Component \"V.Sum\": no");
  EXPECT_EQ(message_of([] { zor::detail::Fail<EZORError>("Factorial: negative argument"); }),
            "Factorial: negative argument");
}

TEST(MemoryGuard, NestsTheCauseAndPassesOnWhatIsNoLackOfMemory) {
  TComponent component;
  const auto fails_with = [&](auto thrown, auto caught) {
    try {
      zor::detail::guard_memory<EZORError>(component, zor::detail::kNoHeap, [&]() -> int { throw thrown; });
    } catch (const EZORError& error) {
      EXPECT_THROW(std::rethrow_if_nested(error), decltype(caught));
      return std::string(error.what());
    } catch (...) {
    }
    return std::string("passed on");
  };
  const std::string text = "Component \"\": not enough memory on heap";
  EXPECT_EQ(fails_with(EOutOfMemory("x"), EOutOfMemory("x")), text);
  EXPECT_EQ(fails_with(std::bad_alloc(), std::bad_alloc()), text);
  EXPECT_EQ(fails_with(EMathError("x"), 0), "passed on");
  EXPECT_EQ(zor::detail::guard_all<EZORError>(component, "", [] { return 7; }), 7);
  EXPECT_THROW(zor::detail::guard_all<EZORError>(component, "", []() -> int { throw EMathError("x"); }), EZORError);
}

TEST(Exceptions, AreCaughtByTheirBasesOnly) {
  EXPECT_THROW(throw EZORError("x"), Exception);
  EXPECT_THROW(throw EZORError("x"), std::exception);
  const auto caught_as_library_error = [](auto error) {
    try {
      throw error;
    } catch (const EZORError&) {
      return true;
    } catch (const Exception&) {
      return false;
    }
  };
  EXPECT_TRUE(caught_as_library_error(EZORError("x")));
  EXPECT_FALSE(caught_as_library_error(EMathError("x")));
  EXPECT_FALSE(caught_as_library_error(EOutOfMemory("x")));
}

TEST(Exceptions, KeepTheirMessageInBothForms) {
  const EZORError error("Größe");
  EXPECT_EQ(error.Message().Length(), 5);
  EXPECT_STREQ(error.what(), "Größe");
  const EZORError copy = error;
  EXPECT_STREQ(copy.what(), "Größe");
}

}  // namespace
}  // namespace ZOR_zorbase
