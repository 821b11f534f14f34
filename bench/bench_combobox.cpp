// The completion step on a drop-down combo box of 10,000 entries, per
// keystroke, against the control's own prefix search (CB_FINDSTRING) for the
// same text. The typed text is a prefix of the first, the middle and the
// last entry, or of none; the window text is put back before each step (not
// timed). The ratio is completion time over search time.
#include "bench_clock.h"
#include <stdio.h>
#include <string.h>

#include <vrk_combobox.h>

#include <string>
#include <vector>

namespace {

const int g_nEntries = 10000;
const int g_nRounds = 200;

// A word made from the number, so neighbours differ early and late.
std::string Word(int i) {
  static const char* syllables[] = {"ka", "lo", "mi", "ne", "su", "ta", "vo", "ri", "pe", "du"};
  std::string s;
  for (int n = i * 7919 % 100000, k = 0; k < 5; k++, n /= 10)
    s += syllables[n % 10];
  return s + std::to_string(i);
}

struct Result {
  double dSearch, dComplete;
};

Result Measure(CComboBox& combo, const char* pszTyped) {
  Result r = {0, 0};
  for (int i = 0; i < g_nRounds; i++) {
    double t0 = NowMs();
    combo.SendMessage(CB_FINDSTRING, (WPARAM)-1, (LPARAM)pszTyped);
    r.dSearch += NowMs() - t0;
    combo.SetWindowText(pszTyped);
    t0 = NowMs();
    VrkComboBoxDoQuickenAction(&combo, VRK_COMBO_COMPLETE | VRK_COMBO_KEEPTYPED);
    r.dComplete += NowMs() - t0;
  }
  r.dSearch /= g_nRounds;
  r.dComplete /= g_nRounds;
  return r;
}

} // namespace

int main() {
  CWnd parent;
  if (!parent.CreateEx(0, AfxRegisterWndClass(0), "bench", WS_OVERLAPPEDWINDOW, 0, 0, 300, 300,
                       NULL, NULL))
    return 1;
  CComboBox combo;
  if (!combo.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN | CBS_SORT | CBS_AUTOHSCROLL,
                    CRect(10, 10, 200, 300), &parent, 1))
    return 1;
  combo.SendMessage(CB_INITSTORAGE, g_nEntries, g_nEntries * 24);
  for (int i = 0; i < g_nEntries; i++)
    combo.AddString(Word(i).c_str());

  struct Probe {
    const char* pszWhere;
    int nIndex; // -1: no entry matches
  } probes[] = {{"first entry", 0},
                {"middle entry", g_nEntries / 2},
                {"last entry", g_nEntries - 1},
                {"no entry", -1}};
  double dWorst = 0;
  for (const Probe& p : probes) {
    CString strEntry = "zzzz";
    if (p.nIndex >= 0) combo.GetLBText(p.nIndex, strEntry);
    std::string strTyped((LPCSTR)strEntry, p.nIndex >= 0 ? 6 : 4);
    Result r = Measure(combo, strTyped.c_str());
    double dRatio = r.dComplete / r.dSearch;
    if (dRatio > dWorst) dWorst = dRatio;
    printf("%-13s typed %-8s CB_FINDSTRING %8.4f ms  completion %8.4f ms  ratio %.2f\n", p.pszWhere,
           strTyped.c_str(), r.dSearch, r.dComplete, dRatio);
  }
  printf("completion per keystroke, %d entries: worst ratio %.2f (limit 2.00)\n", g_nEntries,
         dWorst);
  parent.DestroyWindow();
  return 0;
}
