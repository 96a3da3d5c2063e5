// symbol_repository.cpp - see symbol_repository.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/symbol_repository.h>

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <new>
#include <utility>

#include <geomap/landmarks/record_attributes.h>
#include <platform/base/atomic_file.h>
#include <platform/base/text_format.h>

namespace zav {
namespace {

// In the order in which they are written. The names are in files: do not change them.
enum TField : size_t { Element, Name, Category, ColorFG, ColorBG, Size, Transp, Dir, Leng };
constexpr std::array<std::string_view, 9> FieldNames = {
    "element", "name", "category", "colorfg", "colorbg", "size", "transp", "dir", "leng"};

TSymbol SymbolOf(const TRecordAttributes& A) {
  return {{A.Element(Element), A.Integer(Size), A.Color(ColorFG), A.Color(ColorBG), A.Flag(Transp),
           A.Integer(Dir), A.Integer(Leng)},
          A.Text(Name),
          A.Integer(Category)};
}

void PutLine(TRecordLine& Line, const TSymbol& Symbol) {
  const TSymbolProperties& P = Symbol.Properties;
  Line.Begin(TXmlTag::Symbol);
  Line.Text(FieldNames[Element], LMTypeName(P.Kind));
  Line.Text(FieldNames[Name], Symbol.Name.View());
  Line.Integer(FieldNames[Category], Symbol.Category);
  Line.Color(FieldNames[ColorFG], P.FGColor);
  Line.Color(FieldNames[ColorBG], P.BGColor);
  Line.Integer(FieldNames[Size], P.Size);
  Line.Flag(FieldNames[Transp], P.Transparent);
  Line.Integer(FieldNames[Dir], P.Direction);
  Line.Integer(FieldNames[Leng], P.Length);
}

// NextTag(Attributes, Contents) reads on.
template <typename TNextTag>
std::vector<TSymbol> ReadSymbols(const TNextTag& NextTag) {
  std::vector<TSymbol> Symbols;
  TRecordAttributes Attributes(FieldNames);
  std::string Text;
  std::string Contents;
  for (;;) {
    const TXmlTag Tag = NextTag(Text, Contents);
    if (Tag == TXmlTag::EndGeomap || Tag == TXmlTag::Invalid) return Symbols;
    if (Tag != TXmlTag::Symbol) continue;
    if (Symbols.size() == std::numeric_limits<int32_t>::max()) throw std::bad_alloc();
    Attributes.Read(Text);
    Symbols.push_back(SymbolOf(Attributes));
  }
}

}  // namespace

TSymbol DefaultSymbolRecord() {
  return {{TLandMarkElement::lmCross, 8, clBlack, clRed, false, 90, 40}, "", 0};
}

void TSymbolRepository::Assign(const TPersistent& Source) {
  const auto* From = dynamic_cast<const TSymbolRepository*>(&Source);
  if (From == nullptr) return TComponent::Assign(Source);
  std::vector<TSymbol> Bak = From->FSymbolsBak;
  FSymbols = From->FSymbols;
  FSymbolsBak = std::move(Bak);
}

void TSymbolRepository::AssignTo(TPersistent& Dest) const {
  if (dynamic_cast<TSymbolRepository*>(&Dest) == nullptr) return TComponent::AssignTo(Dest);
  Dest.Assign(*this);
}

void TSymbolRepository::SetNEntries(int32_t Value) {
  if (Value < 0) return;
  try {
    FSymbols.resize(static_cast<size_t>(Value));
  } catch (const std::exception&) {
    throw EZAVGeoMapError(ComponentMessage("insufficient memory"));
  }
}

TSymbol TSymbolRepository::GetValues(int32_t Index) const {
  if (Index < 1 || Index > NumEntries()) return DefaultSymbolRecord();
  return FSymbols[static_cast<size_t>(Index - 1)];
}

void TSymbolRepository::SetValues(int32_t Index, const TSymbol& Symbol) {
  if (Index < 1 || Index > NumEntries()) return;
  FSymbols[static_cast<size_t>(Index - 1)] = Symbol;
}

void TSymbolRepository::Clear() {
  std::fill(FSymbols.begin(), FSymbols.end(), DefaultSymbolRecord());
}

std::string TSymbolRepository::FileText(const std::string& DataID) const {
  const std::string Prefix = ComponentMessage("");
  CheckRecordText(DataID, Prefix, "the id");
  std::string Text =
      "<?xml version=\"1.0\"?>\r\n\r\n<!-- TGeoMap Landmark Repository / Tarvoline -->\r\n" +
      RecordRootLine(TXmlTag::LmSymbols, DataID);
  TRecordLine Line;
  for (size_t I = 0; I < FSymbols.size(); ++I) {
    CheckRecordText(FSymbols[I].Name.View(), Prefix,
                    "the name of symbol " + IntegerText(static_cast<int64_t>(I) + 1));
    PutLine(Line, FSymbols[I]);
    Text += Line.End();
  }
  return Text + "</lmsymbols>\r\n";
}

void TSymbolRepository::StoreOnFile(const std::string& FileName, const std::string& DataID) const {
  WriteWholeFile(FileName, FileText(DataID));
}

void TSymbolRepository::WriteToStream(TStream& S, const std::string& DataID) const {
  const std::string Text = FileText(DataID);
  S.Write(Text.data(), Text.size());
}

bool TSymbolRepository::ReadFromOpenXMLFile(TextFile& F, const std::string& DataID) {
  std::string Root;
  if (!FindRootLine(F, TXmlTag::LmSymbols, DataID, Root)) return false;
  FSymbols = ReadSymbols([&](std::string& Attributes, std::string& Contents) {
    return ReadNextTagInTextFile(F, Attributes, Contents);
  });
  return true;
}

bool TSymbolRepository::ReadFromStream(TStream& S, const std::string& DataID) {
  std::string Root;
  if (!FindRootLine(S, TXmlTag::LmSymbols, DataID, Root)) return false;
  FSymbols = ReadSymbols([&](std::string& Attributes, std::string& Contents) {
    return ReadNextTagInStream(S, Attributes, Contents);
  });
  return true;
}

bool TSymbolRepository::LoadFromFile(const std::string& FileName, const std::string& DataID) {
  TextFile F;
  if (!OpenRecordFile(F, FileName)) return false;
  return ReadFromOpenXMLFile(F, DataID);
}

}  // namespace zav
