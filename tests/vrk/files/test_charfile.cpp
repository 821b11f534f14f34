// VCharFileReader: whole-file walks, lines without line feeds or too long
// for the line buffer, and field splitting with its quirks.
#include <vrk_charfilereader.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "msgbox_catcher.h"
#include "temp_dir.h"

#include <string>
#include <vector>

namespace {

// Opens the protected line reader to the tests.
class LineReader : public VCharFileReader {
public:
  explicit LineReader(const char* pszName) : VCharFileReader(pszName) {}
  using VCharFileReader::FinishedWithFile;
  using VCharFileReader::ReadLine;
  using VCharFileReader::ReadOneByte;
  CFile* Current() {
    CFile* p = NULL;
    GetCurrentFile(p);
    return p;
  }
  // Every line the file holds, as ReadFile walks them.
  std::vector<std::string> AllLines() {
    std::vector<std::string> lines;
    if (!OpenAndUseExistingFile(m_strFileName, CFile::modeRead)) return lines;
    GetFileSize(m_nFileSize);
    CString strLine;
    while (!FinishedWithFile() && ReadLine(strLine))
      lines.push_back((const char*)strLine);
    return lines;
  }
};

typedef std::vector<std::string> Strings;

// Fields are trimmed and the last one dropped; a field starting with a quote
// runs to the end of the line; no separator and no quote gives nothing.
TEST(CharFileParse, FieldsOfALine) {
  const struct {
    const char* line;
    char sep;
    Strings fields;
  } cases[] = {
      {"a, b ,c", ',', {"a", "b"}},
      {" a ;b;;tail", ';', {"a", "b", ""}},
      {"alone", ',', {}},
      {"", ',', {}},
      {"1, \"two, \"three\", four\"  ", ',', {"1", "\"two, \"three\", four\""}},
      {"  \"q\",x", ',', {"\"q\",x"}},
      {"a\"b,c,d", ',', {"a\"b", "c"}}, // a quote later in a field does not count
  };
  for (const auto& c : cases) {
    VCharFileReader reader;
    reader.SetSeparator(c.sep);
    CString strLine(c.line);
    CStringArray fields;
    EXPECT_EQ(c.fields.empty() ? 0 : 1, reader.ParseLine(strLine, &fields)) << c.line;
    Strings out;
    for (INT_PTR i = 0; i < fields.GetSize(); ++i)
      out.push_back((const char*)fields[i]);
    EXPECT_EQ(c.fields, out) << c.line;
  }
  VCharFileReader reader;
  CString strLine("a,b");
  EXPECT_EQ(0, reader.ParseLine(strLine, NULL));
}

// A walk leaves the file open; an unended last line, an overlong line, a
// missing or unnamed file fail it, quietly.
TEST(CharFileRead, WalksAFileLeavingItOpenAndTheWalksThatFail) {
  TempDir dir;
  MsgBoxCatcher catcher;
  const std::string name = dir.File("data.csv");
  ASSERT_TRUE(TempDir::WriteBytes(name, "[head]\r\na,b,c\r\n\r\nx;y\n\"q\",1\r\n"));
  LineReader reader(name.c_str());
  reader.SetSeparator(',');
  reader.SetSection('[');
  EXPECT_EQ(1, reader.ReadFile());
  ASSERT_TRUE(reader.Current() != NULL);
  EXPECT_TRUE(reader.Current()->m_hFile != CFile::hFileNull && reader.FinishedWithFile() == 1);
  // A second walk while the file is set is refused.
  EXPECT_EQ(0, reader.ReadFile() + reader.ProcessLine(NULL));
  EXPECT_EQ(1, reader.CloseFile());

  LineReader lines(name.c_str());
  EXPECT_EQ(Strings({"[head]", "a,b,c", "", "x;y", "\"q\",1"}), lines.AllLines());
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("open.csv"), "a,b\r\nc,d"));
  LineReader unended(dir.File("open.csv").c_str());
  unended.SetSeparator(',');
  EXPECT_EQ(0, unended.ReadFile()); // which closes the file
  ASSERT_TRUE(unended.Current() != NULL);
  EXPECT_EQ(CFile::hFileNull, unended.Current()->m_hFile);
  EXPECT_EQ(Strings({"a,b"}), LineReader(dir.File("open.csv").c_str()).AllLines());
  // The line buffer holds 1199 characters; a longer line, or a long run
  // without any line feed, fails the walk.
  const std::string fits = std::string(1199, 'f');
  const std::string longName = dir.File("long.txt");
  ASSERT_TRUE(TempDir::WriteBytes(longName, fits + "\r\n" + std::string(1200, 'g') + "\r\nnext\n"));
  LineReader longLines(longName.c_str());
  ASSERT_EQ(1, longLines.OpenAndUseExistingFile(longName.c_str(), CFile::modeRead));
  CString strLine;
  EXPECT_EQ(1, longLines.ReadLine(strLine));
  EXPECT_EQ(fits, (const char*)strLine);
  EXPECT_EQ(0, longLines.ReadLine(strLine));
  longLines.CloseFile();
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("huge.txt"), std::string(100000, 'h') + "\n"));
  ASSERT_TRUE(TempDir::WriteBytes(dir.File("empty.csv"), ""));
  const struct {
    const char* name;
    int result;
  } files[] = {{"long.txt", 0}, {"huge.txt", 0}, {"empty.csv", 1}, {"missing.csv", 0}};
  for (const auto& f : files)
    EXPECT_EQ(f.result, LineReader(dir.File(f.name).c_str()).ReadFile()) << f.name;
  LineReader unnamed(NULL);
  EXPECT_EQ(0, unnamed.ReadFile());
  EXPECT_EQ(0u, catcher.Count()); // _access rules the missing file out before any open
  unsigned char b = 9;
  EXPECT_TRUE(unnamed.ReadOneByte(&b) == 0 && b == 9);
  EXPECT_TRUE(unnamed.ReadLine(strLine) == 0 && strLine.IsEmpty());
}

} // namespace
