// Registers the file type .messreihe, so that a double click opens it in Messprotokoll.exe, which
// lies in the same folder as this library. The registrar is "regsvr32 MessreiheTyp.dll".
#include <olectl.h>
#include <windows.h>

#include <wchar.h>

static HINSTANCE library;

static const wchar_t kExtension[] = L".messreihe";
static const wchar_t kType[] = L"Messprotokoll.Messreihe";
static const wchar_t kCommandKey[] = L"Messprotokoll.Messreihe\\shell\\open\\command";
static const wchar_t kIconKey[] = L"Messprotokoll.Messreihe\\DefaultIcon";

BOOL WINAPI DllStart(HINSTANCE instance, DWORD reason, LPVOID reserved) {
  (void)reserved;
  if (reason == DLL_PROCESS_ATTACH) library = instance;
  return TRUE;
}

static BOOL SetDefault(const wchar_t* key, const wchar_t* value) {
  DWORD bytes = (DWORD)((wcslen(value) + 1) * sizeof *value);
  return RegSetKeyValueW(HKEY_CLASSES_ROOT, key, NULL, REG_SZ, value, bytes) == ERROR_SUCCESS;
}

__declspec(dllexport) HRESULT WINAPI DllRegisterServer(void) {
  wchar_t folder[MAX_PATH], command[MAX_PATH + 40], icon[MAX_PATH + 40];
  DWORD length = GetModuleFileNameW(library, folder, MAX_PATH);
  if (length == 0 || length == MAX_PATH) return SELFREG_E_CLASS;
  while (length > 0 && folder[length - 1] != L'\\') length--;
  folder[length] = 0;

  wcscpy(command, L"\"");
  wcscat(command, folder);
  wcscat(command, L"Messprotokoll.exe\" \"%1\"");
  wcscpy(icon, folder);
  wcscat(icon, L"Messprotokoll.exe,0");
  BOOL done = SetDefault(kExtension, kType) && SetDefault(kType, L"Messreihe") &&
              SetDefault(kIconKey, icon) && SetDefault(kCommandKey, command);
  return done ? S_OK : SELFREG_E_CLASS;
}

__declspec(dllexport) HRESULT WINAPI DllUnregisterServer(void) {
  RegDeleteTreeW(HKEY_CLASSES_ROOT, kType);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, kExtension);
  return S_OK;
}
