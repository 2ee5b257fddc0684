#pragma once

#include <exception>
#include <string>

#include "zor/runtime/tstring.h"

/// \file  Exceptions of the runtime. Each carries a finished message and nothing else.

namespace ZOR_runtime {

/// Base of all exceptions of this library.
class ZOR_API Exception : public std::exception {
 public:
  explicit Exception(const TString& message) : message_(message), utf8_(message.utf8()) {}
  ~Exception() override;
  Exception(const Exception&) = default;
  Exception& operator=(const Exception&) = default;

  const TString& Message() const noexcept { return message_; }
  /// The message in UTF-8.
  const char* what() const noexcept override { return utf8_.c_str(); }

 private:
  TString message_;
  std::string utf8_;
};

/// Declares an exception class with a message and an anchor of its own, so that it can be caught across libraries.
#define ZOR_DECLARE_EXCEPTION(Name, Base)                                 \
  class ZOR_API Name : public Base {                                      \
   public:                                                                \
    explicit Name(const ZOR_runtime::TString& message) : Base(message) {} \
    Name(const Name&) = default;                                          \
    Name& operator=(const Name&) = default;                               \
    ~Name() override;                                                     \
  }

/// Argument of a mathematical function outside its domain.
ZOR_DECLARE_EXCEPTION(EMathError, Exception);
/// Text or object that cannot be converted.
ZOR_DECLARE_EXCEPTION(EConvertError, Exception);
/// File or stream that cannot be opened, read or written.
ZOR_DECLARE_EXCEPTION(EInOutError, Exception);
/// Memory for cells that cannot be had.
ZOR_DECLARE_EXCEPTION(EOutOfMemory, Exception);

}  // namespace ZOR_runtime
