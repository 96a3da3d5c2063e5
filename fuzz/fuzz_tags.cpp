// fuzz_tags.cpp - the scanner of record files: lines, tags, attributes and numbers of any text.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/xml_records.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>
#include <platform/base/text_scan.h>

#include <cmath>
#include <cstdlib>

namespace {

void Require(bool Condition) {
  if (!Condition) std::abort();
}

// Scans a value in every way; positions stay in the text and numbers are finite.
void ScanValue(const std::string& Value) {
  const auto end = static_cast<int32_t>(Value.size()) + 1;
  const auto inside = [&](int32_t pos) { return pos >= 1 && pos <= end; };
  int32_t pos = 1;
  zav::ScanInteger(Value, pos);
  Require(inside(pos));
  zav::ScanHex(Value, pos = 1);
  Require(inside(pos));
  zav::ScanDateTime(Value, "yyyymmddHHMMSS", pos = 1);
  Require(inside(pos));
  const double number = zav::ScanFloat(Value, true, 3, pos = 1);
  Require(inside(pos) && std::isfinite(number));
  pos = 1;
  Require(zav::ScanFloat(zav::ShortestNumber(number), true, 1, pos) == number);
  Require(zav::SameText(zav::LowerCase(Value), Value));
}

void ReadAttributes(const std::string& Text) {
  std::string name, value;
  for (int32_t pos = 1; zav::NextAttribute(Text, pos, name, value) == 0;) ScanValue(value);
  ScanValue(zav::FindAttribute(Text, "lat"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
  zav::TMemoryStream stream;
  stream.Write(Data, Size);
  stream.SetPosition(0);
  std::string line, attributes, contents;
  if (!zav::FindRootLine(stream, zav::TXmlTag::GmLandmarks, "", line)) stream.SetPosition(0);
  for (size_t before = stream.Position();; before = stream.Position()) {
    const zav::TXmlTag tag = zav::ReadNextTagInStream(stream, attributes, contents);
    if (tag == zav::TXmlTag::Invalid) break;
    Require(stream.Position() > before);
    ReadAttributes(attributes);
    ScanValue(contents);
  }
  return 0;
}
