/// @file
/// text_file.h - text files read and written by lines.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_TEXT_FILE_H
#define ZAV_PLATFORM_BASE_TEXT_FILE_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include <platform/base/api.h>
#include <platform/base/atomic_file.h>

namespace zav {

/// Lines end in CR LF when written; CR LF, LF and a lone CR end a line when read. Bytes are passed
/// on as they are, but for a byte order mark at the beginning of the file. A file that is written
/// replaces an older one when it is closed, whole or not at all. Every operation throws EInOutError
/// when the system fails it or the file is not open for it.
class ZAVGEO_API TextFile {
 public:
  /// Opens a file for reading at its first line.
  void Reset(const std::string& Path);
  /// Begins a new file, which takes the name Path at Close(). Destroyed before that it leaves
  /// nothing.
  void Rewrite(const std::string& Path);
  /// Ends reading, or writes what is written to the disk and under its name.
  void Close();

  /// Whether all has been read.
  bool Eof() const;
  /// The next line without its end; empty at the end of the file.
  std::string ReadLn();
  /// All that has not been read yet, line ends included; valid until the file is closed.
  std::string_view Rest() const;
  /// Counts the next Count bytes, or all, as read.
  void Skip(size_t Count);

  /// Appends the text as it is.
  void Write(std::string_view Text);
  /// Appends the line and CR LF.
  void WriteLn(std::string_view Line = {});

  /// The file opened last, as it was named.
  const std::string& Path() const noexcept { return FPath; }

 private:
  void RequireReading() const;

  std::string FPath;
  bool FReading = false;
  std::string FText;  // the file that is read
  size_t FPos = 0;
  std::unique_ptr<TAtomicFile> FOutput;
};

}  // namespace zav

#endif
