// vrk_printtextline.h - the tokens of a printed text line. Control
// characters in the line set the layout of the token that follows them:
//   0x1C  the next token is preceded by a dot leader (the text goes on)
//   0x1E  ends the token; the next is right-aligned
//   0x1F  ends the token; the next is centred
//   0x0A  ends the token; the next starts a new line, left-aligned
// A doubled 0x1C, 0x1E or 0x1F stands for one literal character.
#ifndef VRK_PRINTTEXTLINE_H
#define VRK_PRINTTEXTLINE_H

#include "vrkdefs.h"

// What GetNextToken found (the names are ours; the values are fixed).
enum VNTRESULT {
  VNT_NOMORE = 1, // no more tokens
  VNT_TOKEN = 2,  // a token ended at the end of the text or at an alignment marker
  VNT_NEWLINE = 3 // a token ended at a line feed
};

struct VRK_API VPTLTOKEN {
  VPTLTOKEN() : nFormat(0), bLeader(0), bNewLine(0) {}
  CString strText;
  int nFormat;  // DT_LEFT 0, DT_CENTER 1, DT_RIGHT 2
  int bLeader;  // fill the gap before this token with dots
  int bNewLine; // the token starts a new line
};

struct VPTLPROFILE {
  int bHasMarkers; // the line holds a leader marker (0x1C)
};

// Splits one line into tokens; use a new parser for each line.
class VRK_API VPrintTextLineParser {
public:
  VPrintTextLineParser();
  virtual ~VPrintTextLineParser();

  // 0 for NULL; else sets bHasMarkers and returns 1.
  static int GetProfile(const char* pszLine, VPTLPROFILE& profile);
  // The next token of the line; the line is read on the first call only.
  VNTRESULT GetNextToken(const char* pszLine, VPTLTOKEN& token);

protected:
  const char* m_pszPos; // the current character; NULL before the first call
  int m_nStep;          // characters to step over before the next read
  int m_chLast;         // the last character read
  int m_nFormat;        // carried to the next token
  int m_bLeader;
  int m_bNewLine;
};

#endif // VRK_PRINTTEXTLINE_H
