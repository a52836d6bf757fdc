#include "platform/data/Value.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

TEST(ValueTest, NullIsZeroFalseAndTheEmptyText) {
  const Value null;
  EXPECT_TRUE(null.IsNull());
  EXPECT_EQ(null.Long(), 0);
  EXPECT_EQ(null.Integer(), 0);
  EXPECT_EQ(null.Byte(), 0);
  EXPECT_FALSE(null.Flag());
  EXPECT_EQ(null.Text(), "");
  EXPECT_EQ(null.Number(), 0);
}

TEST(ValueTest, ANumberBeyondItsFieldIsOverflow) {
  EXPECT_EQ(Value(255).Byte(), 255);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value(256).Byte()); }), 6);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value(-1).Byte()); }), 6);
  EXPECT_EQ(Value(32767).Integer(), 32767);
  EXPECT_EQ(Value(-32768).Integer(), -32768);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value(32768).Integer()); }), 6);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value(-32769).Integer()); }), 6);
  EXPECT_EQ(Value(std::int64_t{2147483647}).Long(), 2147483647);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value(std::int64_t{2147483648}).Long()); }), 6);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value("2147483648").Long()); }), 6);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value(1e300).Long()); }), 6);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value("99999999999999999999").Long()); }), 6);
}

TEST(ValueTest, ATextThatIsNoNumberIsAMismatch) {
  for (const auto* text : {"", " ", "x", "1x", "1 2", "+", "-", "--1", "+-5", "++5", "1,2,3", "inf",
                           "nan", "0x10", "."})
    EXPECT_EQ(ErrorOf([text] { static_cast<void>(Value(text).Long()); }), 13) << text;
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value("sí").Flag()); }), 13);
}

TEST(ValueTest, ATextThatIsANumberIsThatNumber) {
  EXPECT_EQ(Value(" 42 ").Long(), 42);
  EXPECT_EQ(Value("-7").Integer(), -7);
  EXPECT_EQ(Value("+7").Integer(), 7);
  EXPECT_EQ(Value("1,5").Number(), 1.5);
  EXPECT_EQ(Value("1.5").Number(), 1.5);
  EXPECT_TRUE(Value("-1").Flag());
  EXPECT_FALSE(Value("0").Flag());
}

TEST(ValueTest, RealsRoundToEven) {
  EXPECT_EQ(Value(2.5).Long(), 2);
  EXPECT_EQ(Value(3.5).Long(), 4);
  EXPECT_EQ(Value(-2.5).Long(), -2);
  EXPECT_EQ(Value("2,6").Long(), 3);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value(32767.5).Integer()); }), 6);
}

TEST(ValueTest, AnyNumberButZeroIsTrue) {
  EXPECT_TRUE(Value(-1).Flag());
  EXPECT_TRUE(Value(1).Flag());
  EXPECT_TRUE(Value(0.1).Flag());
  EXPECT_FALSE(Value(0).Flag());
}

TEST(ValueTest, TextsOfNumbers) {
  EXPECT_EQ(Value(-12).Text(), "-12");
  EXPECT_EQ(Value(2.5).Text(), "2.5");
  EXPECT_EQ(Value(3.0).Text(), "3");
  EXPECT_EQ(Value("ñ").Text(), "ñ");
}

TEST(ValueTest, AfterZeroMakesNullANumber) {
  EXPECT_EQ(Value().AfterZero().Long(), 0);
  EXPECT_EQ(Value(42).AfterZero().Long(), 42);
  EXPECT_EQ(Value("").AfterZero().Long(), 0);
  EXPECT_EQ(Value("7").AfterZero().Integer(), 7);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value(-1).AfterZero().Long()); }), 13);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value("x").AfterZero().Long()); }), 13);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Value(70000).AfterZero().Integer()); }), 6);
}

TEST(ValueTest, FieldsOfEightAndSixteenBits) {
  EXPECT_EQ(ToByte(255), 255);
  EXPECT_EQ(ErrorOf([] { ToByte(256); }), 6);
  EXPECT_EQ(ToInteger(-32768), -32768);
  EXPECT_EQ(ErrorOf([] { ToInteger(32768); }), 6);
}

TEST(ValueTest, ParseNumberLeavesItsTargetAlone) {
  double number = 9;
  EXPECT_FALSE(ParseNumber("x", number));
  EXPECT_EQ(number, 9);
  EXPECT_TRUE(ParseNumber("1e2", number));
  EXPECT_EQ(number, 100);
}

}  // namespace
}  // namespace quorvane::test
