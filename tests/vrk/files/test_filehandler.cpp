// VFileHandler: ownership of the current file, opening, positions, closing,
// and the message boxes that name the file.
#include <vrk_filehandler.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "in_order.h"
#include "msgbox_catcher.h"
#include "temp_dir.h"

namespace {

const char kOpenText[] = "The file could not be opened";
const char kPositionText[] = "The position in the file could not be read or changed";
const char kUnknownText[] = "An unknown file error occurred";
const char kNoFileText[] = "A file error occurred, but no file was given.";

// Counts its deletions, and lets a test clear the handler's owned pointer.
class CountedFile : public CFile {
public:
  explicit CountedFile(int* pDeleted) : m_pDeleted(pDeleted) {}
  ~CountedFile() { ++*m_pDeleted; }
  int* m_pDeleted;
};
class ClearingHandler : public VFileHandler {
public:
  void ClearPointer() { m_pCurrentFile = NULL; }
};

// A borrowed file is never deleted (DeleteInternalCFile deletes any); a
// handler whose owned pointer was cleared reports it when destroyed.
TEST(FileHandlerOwnership, BorrowedFilesAreNeverDeletedOwnedOnesAre) {
  TempDir dir;
  MsgBoxCatcher catcher;
  int deleted = 0;
  CountedFile* pFile = new CountedFile(&deleted);
  CFile* pGot = NULL;
  {
    VFileHandler handler(pFile);
    EXPECT_EQ(0, handler.SetCurrentFile(NULL));
    EXPECT_EQ(0, handler.OpenAndUseNewFile(dir.File("other.bin").c_str()));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(dir.File("other.bin").c_str()));
  }
  EXPECT_EQ(0, deleted);
  VFileHandler handler(pFile);
  EXPECT_EQ(1, handler.DeleteInternalCFile());
  EXPECT_EQ(1, handler.GetCurrentFile(pGot));
  EXPECT_TRUE(deleted == 1 && pGot == NULL);
  {
    ClearingHandler clearing;
    ASSERT_EQ(1, clearing.OpenAndUseNewFile(dir.File("x.bin").c_str()));
    clearing.GetCurrentFile(pGot);
    clearing.ClearPointer();
  }
  delete pGot;
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ("Someone Has Deleted a CFile pointer we created !", catcher.Last().text);
}

// New files are read-write and truncate; an output already set is kept.
// Bad names fail silently, a missing file with a box that names it.
TEST(FileHandlerOpen, NewExistingMissingFilesAndBadNames) {
  TempDir dir;
  MsgBoxCatcher catcher;
  const std::string name = dir.File("data.bin");
  VFileHandler handler;
  CFile* pFile = NULL;
  ASSERT_EQ(1, handler.OpenNewFile(name.c_str(), pFile, 1));
  pFile->Write("abc", 3);
  CFile* pKeep = pFile;
  EXPECT_EQ(0, handler.OpenNewFile(name.c_str(), pFile, 1));
  char sz[4] = {0};
  EXPECT_TRUE(pKeep == pFile && handler.RewindFile(pFile) == 1 && pFile->Read(sz, 3) == 3);
  delete pFile;
  pFile = NULL;
  unsigned long nSize = 0;
  ASSERT_EQ(1, handler.OpenExistingFile(name.c_str(), pFile, CFile::modeRead, 1));
  EXPECT_TRUE(handler.GetFileSize(pFile, nSize) == 1 && nSize == 3);
  delete pFile;
  VFileHandler owner; // truncates; closing closes the system file only
  ASSERT_EQ(1, owner.OpenAndUseNewFile(name.c_str()));
  EXPECT_TRUE(owner.GetFileSize(nSize) == 1 && nSize == 0);
  owner.GetCurrentFile(pFile);
  EXPECT_EQ(2, owner.CloseFile() + owner.CloseFile());
  EXPECT_EQ(CFile::hFileNull, pFile->m_hFile);
  EXPECT_TRUE(DeleteFileA(name.c_str()));
  pFile = NULL;
  EXPECT_EQ(0, handler.OpenNewFile(NULL, pFile, 0) + handler.OpenNewFile("", pFile, 0) +
                   handler.OpenAndUseExistingFile(NULL, CFile::modeRead));
  EXPECT_EQ(0, handler.OpenExistingFile(name.c_str(), pFile, CFile::modeRead, 0));
  EXPECT_EQ(NULL, pFile);
  ASSERT_EQ(1u, catcher.Count());
  // The failed CFile still knows the full name it was asked to open.
  EXPECT_EQ(std::string(kOpenText) + ": " + name, catcher.Last().text);
}

// Positions are limited to 2 GB; a move is sign-extended, and one before
// the start is a file error reported with the file's name. Every operation
// on no file is FALSE without a box.
TEST(FileHandlerPosition, SetGetMoveAndTheTwoGigabyteLimit) {
  TempDir dir;
  MsgBoxCatcher catcher;
  VFileHandler none;
  unsigned long nPos = 5;
  EXPECT_EQ(0, none.RewindFile() + none.CloseFile() + none.GetFilePosition(nPos) +
                   none.SetFilePosition(1) + none.GetFileSize(nPos) + none.MoveAheadXBytes(1));
  VFileHandler handler;
  ASSERT_EQ(1, handler.OpenAndUseNewFile(dir.File("pos.bin").c_str()));
  CFile* pFile = NULL;
  handler.GetCurrentFile(pFile);
  pFile->Write("0123456789", 10);
  EXPECT_EQ(0, handler.SetFilePosition(0x80000000ul));
  EXPECT_EQ(
      4, Sum({handler.SetFilePosition(4), handler.MoveAheadXBytes(3),
              handler.MoveAheadXBytes(pFile, 0xFFFFFFFFul), handler.GetFilePosition(pFile, nPos)}));
  EXPECT_EQ(6ul, nPos);
  EXPECT_TRUE(handler.RewindFile() == 1 && handler.MoveAheadXBytes(0xFFFFFFFEul) == 0);
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ(std::string(kPositionText) + ": " + dir.File("pos.bin"), catcher.Last().text);
}

TEST(FileHandlerErrors, TextsAndFallbacks) {
  TempDir dir;
  MsgBoxCatcher catcher;
  VFileHandler handler;
  CFile unnamed;
  // No explicit and no current file: string 5009 and FALSE; a NULL text
  // shows nothing.
  EXPECT_EQ(0, handler.PutErrorMessage(5004u, NULL));
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ(kNoFileText, catcher.Last().text);
  EXPECT_EQ(0, handler.PutErrorMessage((const char*)NULL, &unnamed));
  EXPECT_EQ(1u, catcher.Count());

  ASSERT_EQ(1, handler.OpenAndUseNewFile(dir.File("e.bin").c_str()));
  const std::string suffix = ": " + dir.File("e.bin");
  const struct {
    const char* text;
    UINT nID;
    CFile* pFile;
    std::string expected;
  } cases[] = {
      {"", 0, NULL, kUnknownText + suffix},               // empty text: string 5006
      {NULL, 4321, NULL, kUnknownText + suffix},          // a string the module lacks: 5006
      {NULL, 5005, NULL, kPositionText + suffix},         // the current file is named
      {NULL, 5005, &unnamed, std::string(kPositionText)}, // a file without a name adds nothing
  };
  for (const auto& c : cases) {
    EXPECT_EQ(1, c.text ? handler.PutErrorMessage(c.text, c.pFile)
                        : handler.PutErrorMessage(c.nID, c.pFile));
    EXPECT_EQ(c.expected, catcher.Last().text);
    EXPECT_EQ(std::vector<int>(1, IDOK), catcher.Last().buttons);
  }
}

} // namespace
