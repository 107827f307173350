#pragma once

#include <oaidl.h>
#include <windows.h>

#include "automation/RunTimeError.h"

namespace norvo::com {

/// The status that carries a run-time error's number, as script hosts and Visual Basic know it:
/// 0x800A0000 + number. A negative number is a status of its own already.
HRESULT StatusOf(const RunTimeError& failure);

/// A status and, when there is one, a description, as a run-time error.
RunTimeError ErrorOf(HRESULT status, String description = {});
/// Of a foreign object that raised; frees the texts of `information`.
RunTimeError ErrorOf(EXCEPINFO& information);

/// Leaves number and description for the caller of an early-bound member.
HRESULT Report(const RunTimeError& failure, const IID& interfaceIdentifier);
/// Fills in what the caller of a late-bound member gets.
HRESULT Report(const RunTimeError& failure, EXCEPINFO& information);

}  // namespace norvo::com
