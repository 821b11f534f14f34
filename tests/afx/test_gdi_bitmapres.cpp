// Bitmap resources written into a scratch module: AfxLoadSysColorBitmap maps
// the four standard colours to the system colours, keeps everything else and
// refuses damaged resources.
#include <gtest/gtest.h>

#include <afxwin.h>
#include <afxgdi_.h>

#include <string>
#include <vector>

#include "gdi_canvas.h"
#include "temp_dir.h"

namespace {

// The packed DIB of a bitmap resource: header, colour table, bits.
std::vector<BYTE> MakeDib(int nWidth, int nHeight, WORD nBitCount,
                          const std::vector<RGBQUAD>& colors, const std::vector<BYTE>& bits,
                          DWORD nClrUsed) {
  BITMAPINFOHEADER bih;
  memset(&bih, 0, sizeof(bih));
  bih.biSize = sizeof(bih);
  bih.biWidth = nWidth;
  bih.biHeight = nHeight;
  bih.biPlanes = 1;
  bih.biBitCount = nBitCount;
  bih.biCompression = BI_RGB;
  bih.biClrUsed = nClrUsed;
  std::vector<BYTE> dib((const BYTE*)&bih, (const BYTE*)(&bih + 1));
  for (const RGBQUAD& q : colors)
    dib.insert(dib.end(), (const BYTE*)&q, (const BYTE*)(&q + 1));
  dib.insert(dib.end(), bits.begin(), bits.end());
  return dib;
}

RGBQUAD Quad(BYTE r, BYTE g, BYTE b) {
  RGBQUAD q = {b, g, r, 0};
  return q;
}

// A copy of this test program with bitmap resources added, loaded as data.
class ResourceModule {
public:
  explicit ResourceModule(const TempDir& dir) : m_hModule(NULL) {
    char self[MAX_PATH];
    ::GetModuleFileNameA(NULL, self, MAX_PATH);
    m_path = dir.File("bitmaps.dll");
    ::CopyFileA(self, m_path.c_str(), FALSE);
    m_hUpdate = ::BeginUpdateResourceA(m_path.c_str(), FALSE);
  }
  ~ResourceModule() {
    if (m_hModule != NULL) ::FreeLibrary(m_hModule);
  }
  void Add(UINT nID, const std::vector<BYTE>& data) {
    ASSERT_TRUE(m_hUpdate != NULL);
    ASSERT_TRUE(::UpdateResourceA(m_hUpdate, RT_BITMAP, MAKEINTRESOURCE(nID),
                                  MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), (LPVOID)data.data(),
                                  (DWORD)data.size()));
  }
  HMODULE Load() {
    ::EndUpdateResourceA(m_hUpdate, FALSE);
    m_hModule = ::LoadLibraryExA(m_path.c_str(), NULL, LOAD_LIBRARY_AS_DATAFILE);
    return m_hModule;
  }
  HBITMAP LoadSysColor(UINT nID, BOOL bMono = FALSE) {
    HRSRC hRsrc = ::FindResourceA(m_hModule, MAKEINTRESOURCE(nID), RT_BITMAP);
    if (hRsrc == NULL) return NULL;
    return AfxLoadSysColorBitmap(m_hModule, hRsrc, bMono);
  }

private:
  std::string m_path;
  HANDLE m_hUpdate;
  HMODULE m_hModule;
};

// Five colours: the four standard ones and a red that no rule maps.
const std::vector<RGBQUAD> kColors = {Quad(0, 0, 0), Quad(0x80, 0x80, 0x80), Quad(0xC0, 0xC0, 0xC0),
                                      Quad(0xFF, 0xFF, 0xFF), Quad(0xFF, 0, 0)};
// One row of five 4-bit pixels (indexes 0 to 4), padded to four bytes.
const std::vector<BYTE> kRow = {0x01, 0x23, 0x40, 0x00};

} // namespace

TEST(SysColorBitmap, StandardColoursBecomeSystemColours) {
  TempDir dir;
  ResourceModule module(dir);
  module.Add(1, MakeDib(5, 1, 4, kColors, kRow, 5));
  ASSERT_TRUE(module.Load() != NULL);

  CBitmap bitmap;
  ASSERT_TRUE(bitmap.Attach(module.LoadSysColor(1)));
  Canvas pixels(5, 1); // the bitmap copied onto a canvas read from memory
  CDC dc;
  dc.CreateCompatibleDC(NULL);
  CBitmap* pOld = dc.SelectObject(&bitmap);
  pixels.DC().BitBlt(0, 0, 5, 1, &dc, 0, 0, SRCCOPY);
  dc.SelectObject(pOld);
  // The system's button face is not the resource's light grey here, so a
  // bitmap loaded without remapping would show.
  ASSERT_NE(RGB(0xC0, 0xC0, 0xC0), ::GetSysColor(COLOR_BTNFACE));
  EXPECT_EQ(::GetSysColor(COLOR_BTNTEXT), pixels.At(0, 0));
  EXPECT_EQ(::GetSysColor(COLOR_BTNSHADOW), pixels.At(1, 0));
  EXPECT_EQ(::GetSysColor(COLOR_BTNFACE), pixels.At(2, 0));
  EXPECT_EQ(::GetSysColor(COLOR_BTNHIGHLIGHT), pixels.At(3, 0));
  EXPECT_EQ(RGB(0xFF, 0, 0), pixels.At(4, 0));
}

TEST(SysColorBitmap, DamagedOrUnsuitableResourcesAreRefused) {
  TempDir dir;
  ResourceModule module(dir);
  // Bits for a 64 x 64 image are missing.
  module.Add(1, MakeDib(64, 64, 4, kColors, kRow, 5));
  // More colours than four bits can index.
  module.Add(2, MakeDib(5, 1, 4, kColors, kRow, 17));
  // No colour table to remap.
  module.Add(3, MakeDib(1, 1, 24, std::vector<RGBQUAD>(), std::vector<BYTE>(4, 0), 0));
  // Shorter than a header.
  module.Add(4, std::vector<BYTE>(10, 0));
  // A width whose row size overflows 32 bits.
  module.Add(5, MakeDib(0x7FFFFFFF, 2, 8, kColors, kRow, 5));
  ASSERT_TRUE(module.Load() != NULL);
  for (UINT nID = 1; nID <= 5; nID++)
    EXPECT_EQ(NULL, module.LoadSysColor(nID)) << "id " << nID;
  EXPECT_EQ(NULL, AfxLoadSysColorBitmap(NULL, NULL));
}
