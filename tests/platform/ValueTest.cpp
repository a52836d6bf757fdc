#include "platform/data/Value.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

TEST(ValueTest, NullIsZeroFalseAndTheEmptyText) {
  const Value null;
  EXPECT_TRUE(null.IsNull());
  EXPECT_THAT(std::tuple(null.Long(), null.Integer(), null.Byte(), null.Number()),
              testing::FieldsAre(0, 0, 0, 0));
  EXPECT_FALSE(null.Flag());
  EXPECT_EQ(null.Text(), "");
}

TEST(ValueTest, ANumberBeyondItsFieldIsOverflow) {
  EXPECT_EQ(Value(255).Byte(), 255);
  for (const auto& value : {Value(256), Value(-1)})
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(value.Byte()); }), 6) << value.Text();
  EXPECT_EQ(Value(32767).Integer(), 32767);
  EXPECT_EQ(Value(-32768).Integer(), -32768);
  for (const auto& value : {Value(32768), Value(-32769), Value(32767.5)})
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(value.Integer()); }), 6) << value.Text();
  EXPECT_EQ(Value(std::int64_t{2147483647}).Long(), 2147483647);
  for (const auto& value : {Value(std::int64_t{2147483648}), Value("2147483648"), Value(1e300),
                            Value("99999999999999999999")})
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(value.Long()); }), 6) << value.Text();
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
  for (const auto& value : {Value(-1), Value("x")})
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(value.AfterZero().Long()); }), 13) << value.Text();
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
