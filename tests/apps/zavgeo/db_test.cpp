// db_test.cpp - databases made, filled, searched and mended from the command line.
// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <regex>

#include "run_program.h"

namespace zav {
namespace {

const std::string Towns =
    "name,lat,long,class,altitude\n"
    "Wien,48.2,16.37,1,171\nZ\xC3\xBCrich,47.38,8.54,2,408\nSuva,-18.14,178.44,3,\n"
    "Apia,-13.83,-171.76,4,2\n";
const std::string Shapes =
    R"({"type":"FeatureCollection","features":[
{"type":"Feature","properties":{"name":"Donau","kind":"River"},"geometry":{"type":"LineString","coordinates":[[8.2,48],[16.4,48.2],[29.6,45.2]]}},
{"type":"Feature","properties":{"name":"Bodensee","kind":"Lake"},"geometry":{"type":"Polygon","coordinates":[[[9,47.8],[9.7,47.5],[9.5,47.4],[9,47.8]],[[9.2,47.6],[9.3,47.6],[9.3,47.5],[9.2,47.6]]]}},
{"type":"Feature","properties":{"name":"Taveuni"},"geometry":{"type":"Polygon","coordinates":[[[179.8,-17],[-179.8,-17],[-179.8,-16.7],[179.8,-16.7],[179.8,-17]]]}}]}
)";

class CliDb : public ::testing::Test {
 protected:
  TTempFolder Folder;
  std::string Base = Folder / "world";

  TRun Db(const std::string& Arguments, const std::string& Input = {}) const {
    return RunProgram("db " + Arguments, Input);
  }
  // A run that must succeed; its output.
  std::string Done(const std::string& Arguments, const std::string& Input = {}) const {
    const TRun Run = Db(Arguments, Input);
    EXPECT_EQ(Run.Status, 0) << Arguments << ": " << Run.Err;
    EXPECT_EQ(Run.Err, "") << Arguments;  // no bar of progress in a pipe
    return Run.Out;
  }
  void Fill() {
    Done("create " + Base);
    Done("import " + Base + " -", Towns);
    Done("import " + Base + " -", Shapes);
  }
  // The names found, in order.
  std::string Names(const std::string& Conditions) const {
    std::string All;
    for (const auto& Row : DataRows(Done("find " + Base + " " + Conditions))) All += Row[1] + " ";
    return All;
  }
  std::map<std::string, std::string> Properties(const std::string& Arguments,
                                                const std::string& Input = {}) const {
    std::map<std::string, std::string> Map;
    for (const auto& Row : DataRows(Done(Arguments, Input)))
      Map[Row[0]] = Row.size() > 1 ? Row[1] : "";
    return Map;
  }
  // All bytes of the files.
  std::string Bytes() const {
    std::string All;
    for (const char* Extension : {"ds", "dd", "i0", "i1", "i2", "i3", "i4"})
      All += ReadWholeTextFile(Base + ".zavg" + Extension) + "|";
    return All;
  }
};

TEST_F(CliDb, ImportsAndFinds) {
  Done("create " + Base + " --description 'The world' --revision 7");
  auto Summary = Properties("import " + Base + ".any -", Towns);
  EXPECT_EQ(Summary["imported"], "4");
  Summary = Properties("import " + Base + " -", Shapes);
  EXPECT_EQ(Summary["imported"], "3");
  EXPECT_EQ(Summary["holes_left_out"], "1");

  auto Info = Properties("info " + Base);
  EXPECT_EQ(Info["items"], "7");
  EXPECT_EQ(Info["description"], "The world");
  EXPECT_EQ(Info["revision"], "7");
  EXPECT_EQ(Info["kind_Town"], "4");
  EXPECT_EQ(Info["kind_Lake"], "1");
  EXPECT_EQ(Info["lat_low"], "-18.14");

  const struct {
    const char* Conditions;
    const char* Names;
  } Cases[] = {
      {"", "Wien Zürich Suva Apia Donau Bodensee Taveuni "},
      {"--kind tOwn", "Wien Zürich Suva Apia "},
      {"--name ZURI", "Zürich "},
      {"--name en", "Bodensee Wien "},
      {"--name b --prefix", "Bodensee "},
      {"--box 47,5,49,17", "Wien Zürich Donau Bodensee "},
      {"--box -20,170,0,-170", "Suva Apia Taveuni "},
      {"--box -20,170,0,-170 --kind town --name u", "Suva "},
      {"--near 48.2,16.3 --count 2 --kind Town", "Wien Zürich "},
      {"--near -17,180 --kind Town --count 2", "Suva Apia "},
      {"--at 47.65,9.25", "Bodensee "},
      {"--at -16.8,-180", "Taveuni "},
      {"--at -16.8,0", ""},
      {"--count 2", "Wien Zürich "},
  };
  for (const auto& Case : Cases) {
    EXPECT_EQ(Names(Case.Conditions), Case.Names) << Case.Conditions;
  }
  // One degree of the equator is 111.195 km on the sphere.
  const auto Near = DataRows(Done("find " + Base + " --near -18.14,177.44 --kind Town"));
  ASSERT_EQ(Near.size(), 4U);
  EXPECT_NEAR(ToNumber(Near[0].back()), 111195.08 * 0.950297, 1);

  auto Item = Properties("get " + Base + " 2");
  EXPECT_EQ(Item["name"], "Zürich");
  EXPECT_EQ(Item["altitude"], "408");
  EXPECT_EQ(Properties("get " + Base + " 5")["points"], "\"48 8.2;48.2 16.4;45.2 29.6\"");
}

TEST_F(CliDb, WhatIsExportedComesBackTheSame) {
  Fill();
  Done("delete " + Base + " 3 1");
  for (const std::string Format : {"csv", "geojson"}) {
    const std::string Copy = Folder / Format;
    const std::string Text = Done("export " + Base + " --format " + Format);
    Done("create " + Copy);
    Done("import " + Copy + " - --keep-ids", Text);
    // The dates are those of the imports.
    const auto WithoutDates = [](const std::string& Export) {
      return std::regex_replace(Export, std::regex("[0-9]{4}-[0-9-]{5} [0-9:]{8}"), "");
    };
    EXPECT_EQ(WithoutDates(Done("export " + Copy + " --format " + Format)), WithoutDates(Text));
    EXPECT_EQ(Properties("info " + Copy)["highest_id"], "7");
    // Only into an empty one.
    EXPECT_EQ(Db("import " + Copy + " - --keep-ids", Text).Status, 1);
  }
  // Identifiers ascend.
  const std::string Odd = Folder / "odd";
  Done("create " + Odd);
  EXPECT_EQ(Db("import " + Odd + " - --keep-ids", "lat,long,id\n1,2,5\n3,4,5\n").Status, 1);
  EXPECT_EQ(Db("import " + Odd + " - --keep-ids", "lat,long\n1,2\n").Status, 1);
  EXPECT_EQ(Properties("info " + Odd)["items"], "0");
}

TEST_F(CliDb, AFailedImportLeavesNothingBehind) {
  Fill();
  const std::string Before = Bytes();
  const struct {
    std::string Arguments, Input;
    const char* Message;
  } Cases[] = {
      {"", "lat,long\n1,2\n3,x\n91,4\n5,6\n", "standard input:3: long \"x\" is not a number"},
      {"", "lat,long\n1,2\n3,x\n91,4\n5,6\n", "standard input:4: lat 91 is outside"},
      {"", "lat,long\n1,2\n3,\"4\n", "a quote is not closed"},
      {"", "name,long\nx,2\n", "there is no column lat"},
      {"--format geojson", Towns, "standard input:1: "},
      {"", Shapes.substr(0, Shapes.size() - 20), "standard input:4: "},
      {"--kind River", Shapes, "a Polygon cannot be a River"},
      {"--kind Castle", Towns, "unknown kind \"Castle\""},
  };
  for (const auto& Case : Cases) {
    const TRun Run = Db("import " + Base + " - " + Case.Arguments, Case.Input);
    EXPECT_EQ(Run.Status, Case.Arguments == "--kind Castle" ? 2 : 1) << Case.Message;
    EXPECT_NE(Run.Err.find(Case.Message), std::string::npos) << Run.Err;
    EXPECT_EQ(Run.Out, "");
    EXPECT_EQ(Bytes(), Before) << Case.Message;
  }
  // Told to, it takes the rest.
  const TRun Rest = Db("import " + Base + " - --skip-bad", "lat,long\n1,2\n3,x\n5,6\n");
  EXPECT_EQ(Rest.Status, 1);
  EXPECT_NE(Rest.Out.find("imported,2\nrefused,1\n"), std::string::npos) << Rest.Out;
  EXPECT_EQ(Properties("info " + Base)["items"], "9");
}

// Starts an import that waits for more of its input, and does Then; returns the wait status.
template <class TThen>
int ImportUnderWay(const std::string& Base, int ErrorHandle, const TThen& Then) {
  int Pipe[2];
  if (pipe(Pipe) != 0) return -1;
  const pid_t Child = fork();
  if (Child == 0) {
    dup2(Pipe[0], STDIN_FILENO);
    close(Pipe[0]);
    close(Pipe[1]);
    const int Null = open("/dev/null", O_WRONLY);
    dup2(Null, STDOUT_FILENO);
    dup2(ErrorHandle >= 0 ? ErrorHandle : Null, STDERR_FILENO);
    execl(ZAVGEO_PROGRAM, ZAVGEO_PROGRAM, "db", "import", Base.c_str(), "-", nullptr);
    _exit(127);
  }
  close(Pipe[0]);
  const auto Previous = std::signal(SIGPIPE, SIG_IGN);
  // Much more than pipe and buffers hold: once it is written, the import is well under way.
  std::string Rows = "lat,long\n";
  while (Rows.size() < 1000000) Rows += "12.5,45.25\n";
  EXPECT_EQ(write(Pipe[1], Rows.data(), Rows.size()), static_cast<ssize_t>(Rows.size()));
  Then(Child);
  const std::string More = Rows.substr(9);
  [[maybe_unused]] const ssize_t Written = write(Pipe[1], More.data(), More.size());
  close(Pipe[1]);
  int Status = 0;
  waitpid(Child, &Status, 0);
  std::signal(SIGPIPE, Previous);
  return Status;
}

TEST_F(CliDb, AStoppedImportLeavesNothingBehind) {
  Fill();
  const std::string Before = Done("export " + Base);
  for (const int Signal : {SIGINT, SIGTERM, SIGKILL}) {
    const int Status = ImportUnderWay(Base, -1, [Signal](pid_t Child) { kill(Child, Signal); });
    if (Signal == SIGKILL) {
      EXPECT_TRUE(WIFSIGNALED(Status));
    } else {
      EXPECT_TRUE(WIFEXITED(Status));
      EXPECT_EQ(WEXITSTATUS(Status), 1);
    }
    EXPECT_EQ(Done("export " + Base), Before) << Signal;
    EXPECT_EQ(Done("check " + Base), "");
  }
  const int Status = ImportUnderWay(Base, -1, [](pid_t) {});
  EXPECT_EQ(Status, 0);
  EXPECT_GT(ToNumber(Properties("info " + Base)["items"]), 100000);
}

TEST_F(CliDb, ABarShowsOnATerminalOnly) {
  Fill();
  int Terminal = -1, Program = -1;
  ASSERT_EQ(openpty(&Terminal, &Program, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(ImportUnderWay(Base, Program, [](pid_t) {}), 0);
  close(Program);
  char Seen[4096];
  const ssize_t Count = read(Terminal, Seen, sizeof Seen);
  close(Terminal);
  ASSERT_GT(Count, 0);
  EXPECT_NE(std::string_view(Seen, static_cast<size_t>(Count)).find("importing ["),
            std::string_view::npos);
}

TEST_F(CliDb, KeepsFilesAndMaintains) {
  Fill();
  const std::string File = Folder / "photo.jpg";
  const std::string Content = std::string("\0\xFF\r\nbytes", 9) + std::string(40000, 'x');
  WriteWholeFile(File, Content);
  EXPECT_EQ(Properties("put-blob " + Base + " " + File + " --at 47.5,9.5 --caption See")["id"],
            "8");
  auto Item = Properties("get " + Base + " 8");
  EXPECT_EQ(Item["kind"], "BLOB");
  EXPECT_EQ(Item["size"], "40009");
  EXPECT_EQ(Item["caption"], "See");
  Done("get-blob " + Base + " 8 " + (Folder / "copy.jpg"));
  EXPECT_EQ(ReadWholeTextFile(Folder / "copy.jpg"), Content);
  EXPECT_EQ(Done("get-blob " + Base + " 8 -"), Content);
  EXPECT_EQ(Db("get-blob " + Base + " 1 " + (Folder / "none")).Status, 1);
  EXPECT_NE(Done("export " + Base + " --format geojson").find(R"("bbox":[9.5,47.5,9.5,47.5])"),
            std::string::npos);

  Done("backup " + Base + " " + (Folder / "saved"));
  EXPECT_EQ(Db("backup " + Base + " " + (Folder / "saved")).Status, 1);
  const size_t Large = ReadWholeFile(Base + ".zavgdd").size();
  Done("delete " + Base + " 8");
  EXPECT_EQ(Db("delete " + Base + " 1 8").Status, 1);  // all or none
  EXPECT_EQ(Names("--name wien"), "Wien ");
  Done("compact " + Base);
  EXPECT_LT(ReadWholeFile(Base + ".zavgdd").size(), Large - 40000);
  EXPECT_EQ(Done("check " + Base), "");
  EXPECT_EQ(Done("export " + (Folder / "saved")).find("photo.jpg") != std::string::npos, true);

  // An index that disagrees is named and mended.
  std::string Index = ReadWholeTextFile(Base + ".zavgi2");
  Index[4] = static_cast<char>(Index[4] ^ 1);
  WriteWholeFile(Base + ".zavgi2", Index);
  const TRun Check = Db("check " + Base);
  EXPECT_EQ(Check.Status, 1);
  EXPECT_NE(Check.Out, "");
  EXPECT_NE(Done("repair " + Base), "");
  EXPECT_EQ(Done("check " + Base), "");
}

TEST_F(CliDb, TellsWhatIsWrong) {
  const struct {
    const char* Arguments;
    int Status;
    const char* Message;
  } Cases[] = {
      {"info BASE", 1, "there is no such database"},
      {"import BASE -", 1, "zavgeo db create"},
      {"check BASE", 1, "there is no such database"},
      {"create BASE", 0, ""},
      {"create BASE", 1, "there is a database of this name already"},
      {"get BASE 1", 1, "there is no item 1"},
      {"delete BASE 1", 1, "there is no item 1"},
      {"get-blob BASE 1 -", 1, "there is no item 1"},
      {"import BASE /nowhere/x.csv", 1, "/nowhere/x.csv"},
      {"import BASE /", 1, "/"},
      {"put-blob BASE /nowhere/x --at 1,2", 1, "/nowhere/x"},
      {"find BASE --box 1,2,3", 2, "--box"},
      {"find BASE --box 4,2,3,5", 2, "south is above north"},
      {"find BASE --near 91,0", 2, "--near"},
      {"find BASE --kind moon", 2, "Border, Town, City"},
      {"find BASE", 0, ""},
      {"export BASE --format xml", 2, "--format"},
      {"export BASE", 0, ""},
  };
  for (const auto& Case : Cases) {
    std::string Arguments = Case.Arguments;
    Arguments.replace(Arguments.find("BASE"), 4, Base);
    const TRun Run = Db(Arguments);
    EXPECT_EQ(Run.Status, Case.Status) << Case.Arguments << ": " << Run.Err;
    EXPECT_NE(Run.Err.find(Case.Message), std::string::npos) << Case.Arguments << ": " << Run.Err;
  }
}

}  // namespace
}  // namespace zav
