#pragma once

#include "zor/base/array_types.h"
#include "zor/base/enums.h"
#include "zor/base/errors.h"
#include "zor/base/events.h"
#include "zor/base/feedback.h"
#include "zor/base/feedback_scope.h"
#include "zor/imaging/clipboard.h"
#include "zor/runtime/dyn_array.h"
#include "zor/runtime/event.h"
#include "zor/runtime/exception.h"
#include "zor/runtime/number_text.h"
#include "zor/runtime/object.h"
#include "zor/runtime/print.h"
#include "zor/runtime/random.h"
#include "zor/runtime/record_file.h"
#include "zor/runtime/streams.h"
#include "zor/runtime/string_list.h"
#include "zor/runtime/text.h"
#include "zor/runtime/text_file.h"
#include "zor/runtime/threads.h"
#include "zor/runtime/tstring.h"
#include "zor/runtime/types.h"

/// \file  What every unit shares: scalar and array types, enumerations, events, errors, the hooks of long computations,
/// and the names of the runtime that interfaces use, so that an application needs one `using namespace` for each unit
/// it uses.
///
///     using namespace ZOR_zorbase;
///     TDoubleArray x = {1.0, 2.0, 3.0};
///     SetLength(x, 5);

namespace ZOR_zorbase {

using ZOR_runtime::Byte;
using ZOR_runtime::Cardinal;
using ZOR_runtime::Char;
using ZOR_runtime::Extended;
using ZOR_runtime::Int64;
using ZOR_runtime::ShortInt;
using ZOR_runtime::Word;

using ZOR_runtime::CopyOf;
using ZOR_runtime::High;
using ZOR_runtime::Length;
using ZOR_runtime::SetLength;

using ZOR_runtime::Copy;
using ZOR_runtime::Delete;
using ZOR_runtime::ExtractFileExt;
using ZOR_runtime::FileExists;
using ZOR_runtime::IntToStr;
using ZOR_runtime::LowerCase;
using ZOR_runtime::Pos;
using ZOR_runtime::Str;
using ZOR_runtime::StrToInt;
using ZOR_runtime::UpCase;
using ZOR_runtime::UpperCase;
using ZOR_runtime::Val;

using ZOR_runtime::RandG;
using ZOR_runtime::Random;
using ZOR_runtime::Randomize;
using ZOR_runtime::RandSeed;

using ZOR_runtime::EConvertError;
using ZOR_runtime::EInOutError;
using ZOR_runtime::EMathError;
using ZOR_runtime::EOutOfMemory;
using ZOR_runtime::Exception;

using ZOR_runtime::Free;
using ZOR_runtime::IsClass;
using ZOR_runtime::Make;
using ZOR_runtime::TComponent;
using ZOR_runtime::TObject;
using ZOR_runtime::TPersistent;

using ZOR_runtime::TFileStream;
using ZOR_runtime::TMemoryStream;
using ZOR_runtime::TRecordFile;
using ZOR_runtime::TStream;
using ZOR_runtime::TStringList;
using ZOR_runtime::TTextFile;

using ZOR_runtime::fmAppend;
using ZOR_runtime::fmCreate;
using ZOR_runtime::fmOpenRead;
using ZOR_runtime::fmOpenReadWrite;
using ZOR_runtime::fmOpenWrite;
using ZOR_runtime::soBeginning;
using ZOR_runtime::soCurrent;
using ZOR_runtime::soEnd;
using ZOR_runtime::TSeekOrigin;

using ZOR_imaging::Clipboard;
using ZOR_imaging::TBitmap;
using ZOR_imaging::TClipboard;
using ZOR_imaging::TColor;

using ZOR_runtime::CPUCount;
using ZOR_runtime::TCriticalGuard;
using ZOR_runtime::TCriticalSection;
using ZOR_runtime::TThread;

}  // namespace ZOR_zorbase
