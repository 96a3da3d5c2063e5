// jpeg_escape.cpp - see jpeg_escape.h.
// SPDX-License-Identifier: MIT
#include <platform/codec/jpeg_escape.h>

#include <jerror.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zav {

namespace {

// Bytes between the pixels and the next mark that the pixels did not need. A few, and any number of
// the same value, are the padding of some cameras; others are pixels that a damaged place threw out
// of step, often without another sign.
bool IsLeftOver(j_decompress_ptr Info, int Count) noexcept {
  constexpr int Tolerated = 16;
  if (Info->input_scan_number == 0 || Count <= Tolerated) return false;
  const uint8_t* End = Info->src->next_input_byte;
  return !std::all_of(End - Count, End, [&](uint8_t Value) { return Value == End[-Count]; });
}

// Whether pixels are missing or wrong after this warning. The others are harmless: unknown versions
// and transforms, unused fields with odd values.
bool IsDamage(j_common_ptr Info) noexcept {
  switch (Info->err->msg_code) {
    case JWRN_ARITH_BAD_CODE:
    case JWRN_BOGUS_PROGRESSION:
    case JWRN_HIT_MARKER:
    case JWRN_HUFF_BAD_CODE:
    case JWRN_JPEG_EOF:
    case JWRN_MUST_RESYNC:
      return true;
    case JWRN_EXTRANEOUS_DATA:
      return IsLeftOver(reinterpret_cast<j_decompress_ptr>(Info), Info->err->msg_parm.i[0]);
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
  if (Level < 0 && IsDamage(Info)) OnError(Info);
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
