// Long random runs of operations on a few values, held against a plain variant.
#include <fdo/value.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cwchar>
#include <random>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "values/value_test_peer.h"

namespace fdo {
namespace {

struct Undefined {
  bool operator==(Undefined const&) const { return true; }
};
struct Null {
  bool operator==(Null const&) const { return true; }
};
struct Text {
  std::wstring text;
  bool borrowed;
};
struct Bytes {
  std::vector<unsigned char> bytes;
  bool borrowed;
};
using Model = std::variant<Undefined, Null, bool, long long, double, Text, Bytes>;

int CodeOf(Model const& model) {
  int code = static_cast<int>(model.index());
  if (auto const* text = std::get_if<Text>(&model); text != nullptr && text->borrowed) code |= 8;
  if (auto const* bytes = std::get_if<Bytes>(&model); bytes != nullptr && bytes->borrowed) code |= 8;
  return code;
}

Model Owned(Model model) {
  if (auto* text = std::get_if<Text>(&model)) text->borrowed = false;
  if (auto* bytes = std::get_if<Bytes>(&model)) bytes->borrowed = false;
  return model;
}

double NumberOf(Model const& model) {
  if (auto const* flag = std::get_if<bool>(&model)) return *flag ? 1.0 : 0.0;
  if (auto const* integer = std::get_if<long long>(&model)) return static_cast<double>(*integer);
  if (auto const* number = std::get_if<double>(&model)) return *number;
  if (auto const* text = std::get_if<Text>(&model)) return std::wcstod(text->text.c_str(), nullptr);
  return 0.0;
}

Model Sum(Model const& result, Model const& left, Model const& right) {
  if (CodeOf(left) != CodeOf(right)) return NumberOf(left) + NumberOf(right);
  if (auto const* integer = std::get_if<long long>(&left)) {
    return static_cast<long long>(static_cast<std::uint64_t>(*integer) +
                                  static_cast<std::uint64_t>(std::get<long long>(right)));
  }
  if (std::holds_alternative<double>(left)) return NumberOf(left) + NumberOf(right);
  return result;
}

void ExpectSame(Model const& model, Value const& value) {
  ASSERT_TRUE(ValueTestPeer::IsConsistent(value));
  ASSERT_EQ(CodeOf(model), value.Type());
  if (auto const* flag = std::get_if<bool>(&model)) {
    ASSERT_EQ(*flag, value.AsBool());
  } else if (auto const* integer = std::get_if<long long>(&model)) {
    ASSERT_EQ(*integer, static_cast<__int64>(value));
  } else if (auto const* number = std::get_if<double>(&model)) {
    ASSERT_EQ(*number, static_cast<double>(value));
  } else if (auto const* text = std::get_if<Text>(&model)) {
    ASSERT_EQ(text->text, static_cast<wchar_t const*>(value));
  } else if (auto const* bytes = std::get_if<Bytes>(&model)) {
    ASSERT_EQ(bytes->bytes.size(), static_cast<std::size_t>(value.BlobLen()));
    ASSERT_EQ(bytes->bytes, std::vector<unsigned char>(value.AsBlob(), value.AsBlob() + value.BlobLen()));
  }
}

// What the borrowed values look at; it outlives them.
std::array<std::wstring, 5> const kTexts = {L"", L"1.5", L"true", L"\x4E2D\x6587", std::wstring(300, L'x')};
std::array<std::vector<unsigned char>, 4> const kBlobs = {
    {{0}, {1, 2, 3}, std::vector<unsigned char>(4096, 7), {255, 0}}};

class ModelRun {
 public:
  explicit ModelRun(unsigned seed) : random_(seed) {}

  void Step() {
    std::size_t const i = Below(values_.size());
    std::size_t const j = Below(values_.size());
    std::size_t const k = Below(values_.size());
    Value& value = values_[i];
    Model& model = models_[i];
    switch (Below(16)) {
      case 0:
        value.Reset();
        model = Null();
        break;
      case 1:
        value.Invalidate();
        model = Undefined();
        break;
      case 2: {
        bool const flag = Below(2) == 0;
        value.Reset(flag);
        model = flag;
        break;
      }
      case 3: {
        auto const integer = static_cast<long long>(random_());
        value.Reset(integer);
        model = integer;
        break;
      }
      case 4: {
        double const number = static_cast<double>(Below(1000)) / 8;
        value.Reset(number);
        model = number;
        break;
      }
      case 5:
      case 6: {
        bool const copy = Below(2) == 0;
        std::wstring const& text = kTexts[Below(kTexts.size())];
        value.Reset(text.c_str(), copy);
        model = Text{text, !copy};
        break;
      }
      case 7:
      case 8: {
        bool const copy = Below(2) == 0;
        std::vector<unsigned char> const& bytes = kBlobs[Below(kBlobs.size())];
        value.Reset(bytes.data(), static_cast<int>(bytes.size()), copy);
        model = Bytes{bytes, !copy};
        break;
      }
      case 9:
        value = values_[j];
        if (i != j) model = Owned(models_[j]);
        break;
      case 10:
        value.CopyFrom(values_[j]);
        model = Owned(models_[j]);
        break;
      case 11:
        if (i == j) break;
        value = std::move(values_[j]);
        model = std::exchange(models_[j], Model(Null()));
        break;
      case 12: {
        Value copy(values_[j]);
        value = std::move(copy);
        model = Owned(models_[j]);
        break;
      }
      case 13:
        static_cast<void>(static_cast<wchar_t const*>(value));  // fills the cache
        break;
      case 14:
        static_cast<void>(values_[j] < values_[k]);
        break;
      default:
        model = Sum(model, models_[j], models_[k]);
        Value::Add(value, values_[j], values_[k]);
        break;
    }
  }

  void Check() {
    for (std::size_t i = 0; i < values_.size(); ++i)
      ASSERT_NO_FATAL_FAILURE(ExpectSame(models_[i], values_[i]));
  }

 private:
  std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }

  std::mt19937_64 random_;
  std::array<Value, 6> values_;
  std::array<Model, 6> models_{Null(), Null(), Null(), Null(), Null(), Null()};
};

TEST(ValueModel, RandomOperationsAgreeWithAVariant) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    ModelRun run(seed);
    for (int step = 0; step < 3000; ++step) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
      run.Step();
      ASSERT_NO_FATAL_FAILURE(run.Check());
    }
  }
}

}  // namespace
}  // namespace fdo
