// convert_command.cpp - zavgeo convert: positions from one notation to another, line by line.
// SPDX-License-Identifier: MIT
#include <geobasics/position_text.h>
#include <platform/base/text_format.h>

#include <cstdint>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>

#include "program.h"

namespace zav {

namespace {

struct TConvertOptions {
  TTableOptions Lines;
  std::string From;
  std::string To;
  std::string Ellipsoid = "gelWGS84";
  std::optional<int> Decimals;
};

TNotation NotationOfOption(const std::string& Id) {
  if (const auto Found = FindNotation(Id)) return *Found;
  std::string Known;
  for (const std::string_view Each : NotationId)
    Known += (Known.empty() ? "" : ", ") + std::string(Each);
  throw EUsageError("unknown notation \"" + Id + "\"; there are " + Known);
}

bool IsAngle(TNotation Notation) { return Notation <= TNotation::ntDegreesMinutesSeconds; }

class TLineConverter {
 public:
  explicit TLineConverter(const TConvertOptions& Options)
      : FTo(NotationOfOption(Options.To)),
        FEllipsoid(EllipsoidOfOption(Options.Ellipsoid)),
        FDecimals(Options.Decimals.value_or(MetreDecimals(FTo))) {
    if (!Options.From.empty()) FFrom = NotationOfOption(Options.From);
  }

  // The line in the other notation. Note tells how a line with two meanings was read. Throws
  // EZAVGeoBasicsError.
  std::string Convert(const std::string& Line, std::string& Note) const {
    const TWrittenPosition Written = ParsePositionText(Line);
    if (FFrom && Written.Notation != *FFrom && !(IsAngle(Written.Notation) && IsAngle(*FFrom)))
      throw EPositionTextError("this is " + Name(Written.Notation) + ", not " + Name(*FFrom), 1);
    Note = Written.Note;
    return PositionToText(PositionFromText(Line, FEllipsoid), FTo, FDecimals, FEllipsoid);
  }

 private:
  static std::string Name(TNotation Notation) {
    return std::string(NotationId[static_cast<size_t>(Notation)]);
  }

  TNotation FTo;
  std::optional<TNotation> FFrom;
  TGeoEllipsoid FEllipsoid;
  int FDecimals;
};

void TakeLineEnd(std::string& Line, int64_t Number) {
  if (!Line.empty() && Line.back() == '\r') Line.pop_back();
  if (Number == 1 && Line.starts_with("\xEF\xBB\xBF")) Line.erase(0, 3);
}

// Lines without a position: blank ones and comments, which are kept.
bool HasPosition(const std::string& Line) {
  const size_t First = Line.find_first_not_of(" \t");
  return First != std::string::npos && Line[First] != '#';
}

int ConvertLines(const TConvertOptions& Options) {
  const TLineConverter Converter(Options);
  const bool Standard = Options.Lines.File == "-";
  const std::string File = Standard ? "standard input" : Options.Lines.File;
  std::ifstream Opened;
  if (!Standard) {
    Opened.open(Options.Lines.File, std::ios::binary);
    if (!Opened) throw EInOutError(File, "cannot be opened");
  }
  std::istream& Input = Standard ? std::cin : Opened;
  int Status = 0;
  std::string Line;
  for (int64_t Number = 1; std::getline(Input, Line) && std::cout; ++Number) {
    TakeLineEnd(Line, Number);
    const std::string Place = File + ":" + IntegerText(Number) + ": ";
    try {
      std::string Note;
      if (HasPosition(Line)) Line = Converter.Convert(Line, Note);
      if (!Note.empty()) PrintWarning(Place + Note);
    } catch (const EPositionTextError& Error) {
      PrintError(Place + "column " + IntegerText(Error.Column()) + ": " + Error.what());
      Status = 1;
      Line.clear();
    } catch (const EZAVGeoBasicsError& Error) {
      PrintError(Place + Error.what());
      Status = 1;
      Line.clear();
    }
    if (Status != 0 && Options.Lines.Strict) break;
    std::cout << Line << '\n';
  }
  if (Input.bad()) throw EInOutError(File, "cannot be read");
  return Status;
}

}  // namespace

void AddConvertCommand(TProgram& Program) {
  const auto Options = std::make_shared<TConvertOptions>();
  CLI::App& Command =
      *Program.App.add_subcommand("convert",
                                  "Positions in another notation, line by line: degrees, minutes "
                                  "(degrees and minutes), seconds "
                                  "(degrees, minutes and seconds), utm, ups or mgrs.\n"
                                  "Lines may be in any of them, in most spellings; a line that "
                                  "cannot be read gives an empty one.");
  AddTableOptions(Command, Options->Lines);
  Command.add_option("--to", Options->To, "the notation to write")->required();
  Command.add_option("--from", Options->From, "refuse lines in any other notation");
  Command
      .add_option(
          "--decimals", Options->Decimals,
          "decimals of the last unit; about a metre without. MGRS has digits of a metre for "
          "0, fewer below")
      ->check(CLI::Range(-5, 12));
  Command.add_option("--ellipsoid", Options->Ellipsoid, "identifier of the ellipsoid of the grids")
      ->capture_default_str();
  Command.callback(
      [&Program, Options] { Program.Run = [Options] { return ConvertLines(*Options); }; });
}

}  // namespace zav
