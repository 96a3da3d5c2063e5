// text_file.cpp - see text_file.h.
// SPDX-License-Identifier: MIT
#include <platform/base/text_file.h>

#include <algorithm>

#include <platform/base/errors.h>
#include <platform/base/read_file.h>

namespace zav {

void TextFile::Reset(const std::string& Path) {
  constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
  FText = ReadWholeTextFile(Path);
  FPos = FText.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
  FOutput.reset();
  FPath = Path;
  FReading = true;
}

void TextFile::Rewrite(const std::string& Path) {
  FOutput = std::make_unique<TAtomicFile>(Path);
  FText.clear();
  FPath = Path;
  FReading = false;
}

void TextFile::Close() {
  FText = {};
  FReading = false;
  // Moved out first: after a failure the file is closed as well.
  if (const auto output = std::move(FOutput)) output->Commit();
}

void TextFile::RequireReading() const {
  if (!FReading) throw EInOutError(FPath, "is not open for reading");
}

bool TextFile::Eof() const {
  RequireReading();
  return FPos >= FText.size();
}

std::string TextFile::ReadLn() {
  RequireReading();
  const size_t end = std::min(FText.find_first_of("\r\n", FPos), FText.size());
  std::string line = FText.substr(FPos, end - FPos);
  const bool twoBytes = FText.compare(end, 2, "\r\n") == 0;
  FPos = std::min(end + (twoBytes ? 2 : 1), FText.size());
  return line;
}

std::string_view TextFile::Rest() const {
  RequireReading();
  return std::string_view(FText).substr(FPos);
}

void TextFile::Skip(size_t Count) {
  RequireReading();
  FPos += std::min(Count, FText.size() - FPos);
}

void TextFile::Write(std::string_view Text) {
  if (!FOutput) throw EInOutError(FPath, "is not open for writing");
  FOutput->Write(Text);
}

void TextFile::WriteLn(std::string_view Line) {
  Write(Line);
  Write("\r\n");
}

}  // namespace zav
