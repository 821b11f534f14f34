// demo.h - the sections of the VRK demo; each prints what it shows and
// returns 0 when everything worked.
#ifndef VRK_DEMO_H
#define VRK_DEMO_H

int DemoContacts();   // afx: an object graph through CArchive
int DemoModuleData(); // VRK.dll's module data and the chosen resource module
int DemoSettings();   // settings through VRegArchive and VIniArchive
int DemoRecentList(); // an MRU list kept in a file across runs
int DemoTrace();      // the trace file written through VrkTrace

// The folder for the demo's files (the user's temporary folder).
const char* DemoFolder();

#endif // VRK_DEMO_H
