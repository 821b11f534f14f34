// VProfileArchive: the base behaviour of every archive operation is to do
// nothing and report failure, so a derived store overrides what it supports.
#include "vrk_profile.h"

int VProfileArchive::Read(const char*, void*, DWORD) { return 0; }

int VProfileArchive::Read(const char*, CString&, const char*) { return 0; }

int VProfileArchive::Read(const char*, DWORD&, DWORD) { return 0; }

int VProfileArchive::Read(const char*, int&, int) { return 0; }

int VProfileArchive::Write(const char*, void*, DWORD) { return 0; }

int VProfileArchive::Write(const char*, const char*) { return 0; }

int VProfileArchive::Write(const char*, DWORD) { return 0; }

int VProfileArchive::Close() { return 0; }

VProfileArchive::~VProfileArchive() {}
