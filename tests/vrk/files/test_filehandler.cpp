// VFileHandler: ownership of the current file, opening, positions, closing,
// and the message boxes that name the file.
#include <vrk_filehandler.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "msgbox_catcher.h"
#include "temp_dir.h"

namespace {

const char kOpenText[] = "The file could not be opened";
const char kPositionText[] = "The position in the file could not be read or changed";
const char kUnknownText[] = "An unknown file error occurred";
const char kNoFileText[] = "A file error occurred, but no file was given.";

std::string FullName(const std::string& path) {
  char sz[MAX_PATH];
  GetFullPathNameA(path.c_str(), MAX_PATH, sz, NULL);
  return sz;
}

// Counts its deletions so that tests can see who deleted a file object.
class CountedFile : public CFile {
public:
  explicit CountedFile(int* pDeleted) : m_pDeleted(pDeleted) {}
  ~CountedFile() { ++*m_pDeleted; }
  int* m_pDeleted;
};

// A handler whose owned pointer a caller cleared reports it in its destructor.
class ClearingHandler : public VFileHandler {
public:
  void ClearPointer() { m_pCurrentFile = NULL; }
};

TEST(FileHandlerOwnership, BorrowedFilesAreNeverDeletedOwnedOnesAre) {
  TempDir dir;
  MsgBoxCatcher catcher;
  int deleted = 0;
  CountedFile* pFile = new CountedFile(&deleted);
  CFile* pGot = NULL;
  {
    VFileHandler handler(pFile);
    EXPECT_EQ(0, handler.SetCurrentFile(NULL)); // changes nothing
    EXPECT_EQ(1, handler.GetCurrentFile(pGot));
    EXPECT_EQ(pFile, pGot);
    // A second open while a current file is set does nothing.
    EXPECT_EQ(0, handler.OpenAndUseNewFile(dir.File("other.bin").c_str()));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA(dir.File("other.bin").c_str()));
  }
  EXPECT_EQ(0, deleted);
  {
    VFileHandler handler(pFile); // DeleteInternalCFile deletes even a borrowed file
    EXPECT_EQ(1, handler.DeleteInternalCFile());
    handler.GetCurrentFile(pGot);
    EXPECT_EQ(NULL, pGot);
  }
  EXPECT_EQ(1, deleted);
  CFile* pOwned = NULL;
  {
    ClearingHandler handler;
    ASSERT_EQ(1, handler.OpenAndUseNewFile(dir.File("x.bin").c_str()));
    handler.GetCurrentFile(pOwned);
    handler.ClearPointer();
  }
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ("Someone Has Deleted a CFile pointer we created !", catcher.Last().text);
  delete pOwned;
}

TEST(FileHandlerOpen, NewFilesAreReadWriteAndTruncateAndSetOutputsStay) {
  TempDir dir;
  const std::string name = dir.File("data.bin");
  VFileHandler handler;
  CFile* pFile = NULL;
  ASSERT_EQ(1, handler.OpenNewFile(name.c_str(), pFile, 1));
  pFile->Write("abc", 3);
  CFile* pKeep = pFile; // an output already set is never overwritten
  EXPECT_EQ(0, handler.OpenNewFile(name.c_str(), pFile, 1));
  EXPECT_EQ(pKeep, pFile);
  EXPECT_EQ(1, handler.RewindFile(pFile));
  char sz[4] = {0};
  EXPECT_EQ(3u, pFile->Read(sz, 3));
  EXPECT_EQ(1, handler.CloseFile(pFile));
  delete pFile;
  pFile = NULL;
  unsigned long nSize = 0;
  ASSERT_EQ(1, handler.OpenExistingFile(name.c_str(), pFile, CFile::modeRead, 1));
  EXPECT_EQ(1, handler.GetFileSize(pFile, nSize));
  EXPECT_EQ(3ul, nSize);
  delete pFile;
  VFileHandler owner;
  ASSERT_EQ(1, owner.OpenAndUseNewFile(name.c_str()));
  EXPECT_EQ(1, owner.GetFileSize(nSize));
  EXPECT_EQ(0ul, nSize);
}

TEST(FileHandlerOpen, BadNamesFailSilentlyMissingFilesWithABox) {
  TempDir dir;
  MsgBoxCatcher catcher;
  VFileHandler handler;
  CFile* pFile = NULL;
  EXPECT_EQ(0, handler.OpenNewFile(NULL, pFile, 0));
  EXPECT_EQ(0, handler.OpenNewFile("", pFile, 0));
  EXPECT_EQ(0, handler.OpenAndUseExistingFile(NULL, CFile::modeRead));
  EXPECT_EQ(0u, catcher.Count());

  EXPECT_EQ(0,
            handler.OpenExistingFile(dir.File("missing.bin").c_str(), pFile, CFile::modeRead, 0));
  EXPECT_EQ(NULL, pFile);
  ASSERT_EQ(1u, catcher.Count());
  // The failed CFile has no name to add.
  EXPECT_EQ(kOpenText, catcher.Last().text);
}

TEST(FileHandlerPosition, SetGetMoveAndTheTwoGigabyteLimit) {
  TempDir dir;
  MsgBoxCatcher catcher;
  VFileHandler handler;
  ASSERT_EQ(1, handler.OpenAndUseNewFile(dir.File("pos.bin").c_str()));
  CFile* pFile = NULL;
  handler.GetCurrentFile(pFile);
  pFile->Write("0123456789", 10);

  unsigned long nPos = 99;
  EXPECT_EQ(1, handler.SetFilePosition(4));
  EXPECT_EQ(1, handler.GetFilePosition(nPos));
  EXPECT_EQ(4ul, nPos);
  EXPECT_EQ(0, handler.SetFilePosition(0x80000000ul));
  EXPECT_EQ(0, handler.SetFilePosition(0xFFFFFFFFul));
  handler.GetFilePosition(nPos);
  EXPECT_EQ(4ul, nPos);

  EXPECT_EQ(1, handler.MoveAheadXBytes(3));
  handler.GetFilePosition(nPos);
  EXPECT_EQ(7ul, nPos);
  // Sign-extended: 0xFFFFFFFF moves back one byte.
  EXPECT_EQ(1, handler.MoveAheadXBytes(pFile, 0xFFFFFFFFul));
  handler.GetFilePosition(pFile, nPos);
  EXPECT_EQ(6ul, nPos);

  EXPECT_EQ(1, handler.RewindFile());
  handler.GetFilePosition(nPos);
  EXPECT_EQ(0ul, nPos);
  EXPECT_EQ(0u, catcher.Count());

  // Moving before the start is a file error, reported with the file's name.
  EXPECT_EQ(0, handler.MoveAheadXBytes(0xFFFFFFFEul));
  ASSERT_EQ(1u, catcher.Count());
  EXPECT_EQ(std::string(kPositionText) + ": " + FullName(dir.File("pos.bin")), catcher.Last().text);
}

TEST(FileHandlerClose, ClosesTheSystemFileOnlyAndNeverOpenedIsTrue) {
  TempDir dir;
  MsgBoxCatcher catcher;
  VFileHandler none; // every operation on no file is FALSE without a box
  unsigned long n = 5;
  char sz[MAX_PATH] = "keep";
  char* psz = sz;
  EXPECT_EQ(0, none.RewindFile() + none.CloseFile() + none.GetFilePosition(n) +
                   none.SetFilePosition(1) + none.GetFileSize(n) + none.MoveAheadXBytes(1) +
                   none.GetCurrentFileName(psz));
  EXPECT_EQ(5ul, n);
  EXPECT_STREQ("keep", sz);
  EXPECT_EQ(0u, catcher.Count());

  CFile neverOpened;
  VFileHandler handler(&neverOpened);
  EXPECT_EQ(1, handler.CloseFile());

  VFileHandler owner;
  ASSERT_EQ(1, owner.OpenAndUseNewFile(dir.File("c.bin").c_str()));
  CFile* pFile = NULL;
  owner.GetCurrentFile(pFile);
  EXPECT_EQ(1, owner.CloseFile());
  EXPECT_EQ(CFile::hFileNull, pFile->m_hFile);
  EXPECT_EQ(1, owner.CloseFile()); // already closed
  // The file can be removed: the handle really was closed.
  EXPECT_TRUE(DeleteFileA(dir.File("c.bin").c_str()));
  // The name of a file without one is empty.
  EXPECT_EQ(1, owner.GetCurrentFileName(&neverOpened, psz));
  EXPECT_STREQ("", sz);
  char* pNull = NULL;
  EXPECT_EQ(0, owner.GetCurrentFileName(pNull));
}

TEST(FileHandlerErrors, TextsAndFallbacks) {
  TempDir dir;
  MsgBoxCatcher catcher;
  VFileHandler handler;
  CFile unnamed;

  // No explicit and no current file: string 5009 and FALSE.
  EXPECT_EQ(0, handler.PutErrorMessage("text", NULL));
  EXPECT_EQ(0, handler.PutErrorMessage(5004u, NULL));
  ASSERT_EQ(2u, catcher.Count());
  EXPECT_EQ(kNoFileText, catcher.Last().text);
  catcher.Clear();

  // A NULL text shows nothing.
  EXPECT_EQ(0, handler.PutErrorMessage((const char*)NULL, &unnamed));
  EXPECT_EQ(0u, catcher.Count());

  ASSERT_EQ(1, handler.OpenAndUseNewFile(dir.File("e.bin").c_str()));
  const std::string suffix = ": " + FullName(dir.File("e.bin"));
  // An empty text becomes string 5006; the current file is named.
  EXPECT_EQ(1, handler.PutErrorMessage("", NULL));
  EXPECT_EQ(kUnknownText + suffix, catcher.Last().text);
  // A string id that the resource module lacks falls back to 5006.
  EXPECT_EQ(1, handler.PutErrorMessage(4321u, NULL));
  EXPECT_EQ(kUnknownText + suffix, catcher.Last().text);
  EXPECT_EQ(1, handler.PutErrorMessage(5005u, NULL));
  EXPECT_EQ(kPositionText + suffix, catcher.Last().text);
  // An explicit file without a name adds nothing.
  EXPECT_EQ(1, handler.PutErrorMessage(5005u, &unnamed));
  EXPECT_EQ(kPositionText, catcher.Last().text);
  EXPECT_EQ(4u, catcher.Count());
  EXPECT_EQ(std::vector<int>(1, IDOK), catcher.Last().buttons);
}

} // namespace
