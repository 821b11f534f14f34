// vrk_profile.h - profile archives: named settings in a registry key
// (VRegArchive) or an INI file section (VIniArchive) behind one interface,
// and the registry functions the library uses for single values and keys.
#ifndef VRK_PROFILE_H
#define VRK_PROFILE_H

#include "vrkdefs.h"

// Flag bits of VProfileArchive::Open.
#define VRK_PROFILE_CREATE 0x10000   // create what is missing (INI file, key)
#define VRK_PROFILE_READONLY 0x20000 // open the registry key with KEY_READ

// The archive interface. No fields; the virtual operations keep this slot
// order (hosts derive from it and call through it): Open, the four reads,
// the three writes, Close, the destructor. Results are truth values; no
// operation throws.
class VRK_API VProfileArchive {
public:
  VProfileArchive() {}

  virtual int Open(const char* section, const char* root, DWORD flags) = 0;
  virtual int Read(const char* name, void* buffer, DWORD size);
  virtual int Read(const char* name, CString& value, const char* defaultValue);
  virtual int Read(const char* name, DWORD& value, DWORD defaultValue);
  virtual int Read(const char* name, int& value, int defaultValue);
  virtual int Write(const char* name, void* buffer, DWORD size);
  virtual int Write(const char* name, const char* value);
  virtual int Write(const char* name, DWORD value);
  virtual int Close();
  virtual ~VProfileArchive();
};

// The standard keys VRegArchive::Open(VREGOPENSTANDARDS) opens.
enum VREGOPENSTANDARDS {
  VREG_OPEN_ENVIRONMENT = 0, // HKEY_CURRENT_USER\Environment
  VREG_OPEN_ROOT = 1         // any other value: the key whose path is "\"
};

// Settings in HKEY_CURRENT_USER\<root>\<section>. Copies share the key
// handle (each owns a share of it); Close, Open and the destructor give
// back this archive's share, and the key is closed with the last one.
class VRK_API VRegArchive : public VProfileArchive {
public:
  VRegArchive();
  VRegArchive(const VRegArchive& other);
  VRegArchive& operator=(const VRegArchive& other);
  virtual ~VRegArchive();

  // root NULL: the application's key, Software\<registry key>\<profile>.
  virtual int Open(const char* section, const char* root, DWORD flags);
  int Open(VREGOPENSTANDARDS which);
  // parent\subkey; created when missing only with VRK_PROFILE_CREATE.
  int Open(HKEY parent, const char* subkey, DWORD flags);

  // Integer and string reads of an absent value keep the default and
  // return 1; the string and buffer writes return 1 even when the system
  // refused the write, the integer write returns the system's result.
  virtual int Read(const char* name, void* buffer, DWORD size);
  virtual int Read(const char* name, CString& value, const char* defaultValue);
  virtual int Read(const char* name, DWORD& value, DWORD defaultValue);
  virtual int Read(const char* name, int& value, int defaultValue);
  virtual int Write(const char* name, void* buffer, DWORD size);
  virtual int Write(const char* name, const char* value);
  virtual int Write(const char* name, DWORD value);
  virtual int Close();

  operator HKEY() const { return m_hKey; }

protected:
  HKEY m_hKey; // NULL when closed
};

// Settings in one section of an INI file.
class VRK_API VIniArchive : public VProfileArchive {
public:
  VIniArchive();
  virtual ~VIniArchive();

  // Open(section, file, flags): the file must exist unless VRK_PROFILE_CREATE.
  virtual int Open(const char* section, const char* file, DWORD flags);

  virtual int Read(const char* name, void* buffer, DWORD size);
  virtual int Read(const char* name, CString& value, const char* defaultValue);
  virtual int Read(const char* name, DWORD& value, DWORD defaultValue);
  virtual int Read(const char* name, int& value, int defaultValue);
  int Read(const char* name, unsigned short& value, unsigned short defaultValue);
  int Read(const char* name, unsigned char& value, unsigned char defaultValue);
  virtual int Write(const char* name, void* buffer, DWORD size);
  virtual int Write(const char* name, const char* value);
  virtual int Write(const char* name, DWORD value);
  int Write(const char* name, unsigned short value);
  int Write(const char* name, unsigned char value);
  virtual int Close();

  // "T" or "t", or a non-zero number, is true; anything else, and a missing
  // entry whatever defaultValue says, is false.
  virtual int ReadBool(const char* name, int& value, int defaultValue);
  // Writes "1" or "0".
  virtual int WriteBool(const char* name, int& value);

protected:
  CString m_strFile;
  CString m_strSection;
};

// ---- Registry functions (HKEY_CURRENT_USER unless a key is given) ----------

// "<root>\<section>", or "Software\<registry key>\<profile>\<section>" of the
// application when root is NULL; empty for a NULL section or when there is
// no application key. flags is not used.
VRK_API CString VrkRegMakeKey(const char* section, const char* root, DWORD flags);
// 1 when HKEY_CURRENT_USER\<key path> opens with full access.
VRK_API int VrkRegKeyExists(const char* section, const char* root, DWORD flags);

// The value as a string; the default (or empty) when it cannot be read.
VRK_API CString VrkRegQueryString(HKEY hKey, const char* name, const char* defaultValue);
// The value's first 4 bytes; the default when it cannot be read.
VRK_API DWORD VrkRegQueryDword(HKEY hKey, const char* name, DWORD defaultValue);
VRK_API int VrkRegQueryBinary(HKEY hKey, const char* name, void* buffer, DWORD size);

VRK_API int VrkRegOpenKeyEx(HKEY parent, const char* subkey, HKEY* result, DWORD access);
// Creates the key with the class string "REG_SZ" when it is missing.
VRK_API int VrkRegCreateKeyEx(HKEY parent, const char* subkey, HKEY* result, DWORD access);
VRK_API LONG VrkRegEnumKeyEx(HKEY hKey, DWORD index, char* name, DWORD* nameLength,
                             FILETIME* lastWrite);

// Save parent\subkey to a file, or restore it from one, with the backup or
// restore privilege enabled for the call.
VRK_API int VrkRegSaveKey(HKEY parent, const char* subkey, const char* file,
                          SECURITY_ATTRIBUTES* security);
VRK_API int VrkRegRestoreKey(HKEY parent, const char* subkey, const char* file, DWORD flags);

// ---- Privileges -------------------------------------------------------------

// Non-zero when the named privilege (e.g. SE_BACKUP_NAME) is enabled in the
// token, or in the process's token when hToken is NULL; 0 also when the
// test itself fails.
VRK_API int VrkIsPrivledgeEnabled(const char* privilege, HANDLE hToken = NULL);
// Enables or disables one privilege in the token (the process's when NULL).
VRK_API int VrkModifyPrivilege(const char* privilege, int bEnable, HANDLE hToken = NULL);

#endif // VRK_PROFILE_H
