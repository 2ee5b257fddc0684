#pragma once

#include "zor/runtime/event.h"
#include "zor/runtime/object.h"
#include "zor/runtime/types.h"

/// \file  Types of the events. The first argument is always the object that tells.

namespace ZOR_zorbase {

using ZOR_runtime::TEvent;

/// OnChange, OnResize of the containers.
using TNotifyEvent = TEvent<ZOR_runtime::TObject*>;
/// Progress of one object in whole percent: Sender, Percent.
using TOnPercentDoneEvent = TEvent<ZOR_runtime::TObject*, ZOR_runtime::Integer>;
/// Sender, Abort: the handler sets Abort to true to stop.
using TOnCheckAbortEvent = TEvent<ZOR_runtime::TObject*, ZOR_runtime::Boolean&>;
/// Sender, ExchgWhat, index1, index2, first, last: told right after each exchange of a sort. ExchgWhat 0: elements
/// index1 and index2 of a vector, first and last are 0. 1: columns index1 and index2 over the rows first to last. 2:
/// rows index1 and index2 over the columns first to last.
using TSortExchgEvent = TEvent<ZOR_runtime::TObject*, ZOR_runtime::Byte, ZOR_runtime::Integer, ZOR_runtime::Integer,
                               ZOR_runtime::Integer, ZOR_runtime::Integer>;
/// OnExportText of a table: Sender.
using TExportTextEvent = TEvent<ZOR_runtime::TObject*>;

}  // namespace ZOR_zorbase
