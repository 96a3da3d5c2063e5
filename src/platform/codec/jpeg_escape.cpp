// jpeg_escape.cpp - see jpeg_escape.h.
// SPDX-License-Identifier: MIT
#include <platform/codec/jpeg_escape.h>

#include <jerror.h>

#include <cstring>

namespace zav {

namespace {

// Warnings after which pixels are missing or wrong. The others are harmless: padding between the
// segments, unknown versions and transforms, unused fields with odd values.
bool IsDamage(int Code) noexcept {
  switch (Code) {
    case JWRN_ARITH_BAD_CODE:
    case JWRN_BOGUS_PROGRESSION:
    case JWRN_HIT_MARKER:
    case JWRN_HUFF_BAD_CODE:
    case JWRN_JPEG_EOF:
    case JWRN_MUST_RESYNC:
      return true;
    default:
      return false;
  }
}

TJpegEscape& EscapeOf(j_common_ptr Info) noexcept {
  return *static_cast<TJpegEscape*>(Info->client_data);
}

}  // namespace

jpeg_error_mgr* TJpegEscape::Manager() noexcept {
  jpeg_std_error(&FManager);
  FManager.error_exit = OnError;
  FManager.emit_message = OnMessage;
  return &FManager;
}

void TJpegEscape::OnError(j_common_ptr Info) {
  char Reason[JMSG_LENGTH_MAX];
  Info->err->format_message(Info, Reason);
  EscapeOf(Info).Refuse(Reason);
}

void TJpegEscape::OnMessage(j_common_ptr Info, int Level) {
  if (Level < 0 && IsDamage(Info->err->msg_code)) OnError(Info);
}

void TJpegEscape::Report(int64_t Percent) {
  if (FProgress == nullptr) return;
  Guard([this, Percent] { FCancelled = !FProgress->Report(Percent); });
  if (FCancelled) Leave();
}

void TJpegEscape::Refuse(const char* Reason) {
  std::strncpy(FReason, Reason, sizeof(FReason) - 1);
  Leave();
}

void TJpegEscape::Throw() {
  if (FThrown) std::rethrow_exception(FThrown);
  if (FCancelled) throw EImageCancelled(FName + ": cancelled");
  throw EInOutError(FName, FReason);
}

}  // namespace zav
