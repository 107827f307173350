#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "com/Apartment.h"
#include "com/BasicString.h"
#include "com/LiveObjects.h"
#include "com/OwnedValue.h"
#include "support/MemoryPlatform.h"
#include "support/RaisedErrors.h"
#include "support/TextPrinting.h"

namespace norvo::com {

/// One apartment over a machine in memory. No test may leave an object behind.
class ComTest : public ::testing::Test {
 protected:
  ~ComTest() override { EXPECT_EQ(CountLiveObjects(), 0); }

  /// A new object of a public class, as a host gets it.
  ComPointer<IDispatch> Create(StringView className) {
    return apartment->FaceOf(apartment->Create(className));
  }
  template <class Interface>
  ComPointer<Interface> Create(StringView className) {
    return Create(className).As<Interface>();
  }

  std::shared_ptr<MemoryPlatform> platform = std::make_shared<MemoryPlatform>();
  std::shared_ptr<Apartment> apartment = std::make_shared<Apartment>(platform);
};

/// A counted string for an early-bound call.
class BasicString {
 public:
  BasicString() = default;
  explicit BasicString(StringView text) : text_(ToBasicString(text)) {}
  ~BasicString() { ::SysFreeString(text_); }
  BasicString(const BasicString&) = delete;
  BasicString& operator=(const BasicString&) = delete;

  BSTR Get() const { return text_; }
  BSTR* Receive() {
    ::SysFreeString(text_);
    text_ = nullptr;
    return &text_;
  }
  BSTR* Place() { return &text_; }
  std::string Text() const { return Utf8(FromBasicString(text_)); }

 private:
  BSTR text_ = nullptr;
};

}  // namespace norvo::com
