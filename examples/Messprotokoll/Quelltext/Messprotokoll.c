// Messprotokoll: shows the number, mean, spread, smallest and largest of the values in a series of
// measurements. A series is a text file (.messreihe or .csv) with one "label;value" a line; lines
// that begin with "#" are comments, and a decimal comma is as good as a point.
#include <windows.h>
#include <commdlg.h>
#include <math.h>
#include <shellapi.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

static const wchar_t kTitle[] = L"Messprotokoll";

typedef struct {
  long count;
  double sum, squares, smallest, largest;
} Summary;

static void AddValue(Summary* summary, double value) {
  if (summary->count == 0 || value < summary->smallest) summary->smallest = value;
  if (summary->count == 0 || value > summary->largest) summary->largest = value;
  summary->count++;
  summary->sum += value;
  summary->squares += value * value;
}

// Takes the value behind the first semicolon of each line; `text` ends with a NUL.
static Summary Summarize(char* text) {
  Summary summary = {0};
  while (*text) {
    char* end = text;
    char* value = NULL;
    BOOL comment = *text == '#';
    for (; *end && *end != '\n'; end++) {
      if (*end == ',') *end = '.';
      if (*end == ';' && !value) value = end + 1;
    }
    if (value && !comment && strspn(value, "+-.0123456789") > 0) AddValue(&summary, atof(value));
    text = *end ? end + 1 : end;
  }
  return summary;
}

// The file's content with a NUL behind it, to be freed; NULL when it cannot be read.
static char* ReadSeries(const wchar_t* path) {
  HANDLE file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, NULL, OPEN_EXISTING, 0, NULL);
  if (file == INVALID_HANDLE_VALUE) return NULL;
  DWORD size = GetFileSize(file, NULL), got = 0;
  char* text = size < 0x10000000 ? malloc(size + 1) : NULL;
  if (text && !ReadFile(file, text, size, &got, NULL)) {
    free(text);
    text = NULL;
  }
  if (text) text[got] = 0;
  CloseHandle(file);
  return text;
}

static void ShowSeries(const wchar_t* path) {
  char* text = ReadSeries(path);
  if (!text) {
    MessageBoxW(NULL, L"Die Messreihe kann nicht gelesen werden.", kTitle, MB_ICONEXCLAMATION);
    return;
  }
  Summary summary = Summarize(text);
  free(text);
  if (summary.count == 0) {
    MessageBoxW(NULL, L"Die Messreihe enthält keine Werte.", kTitle, MB_ICONEXCLAMATION);
    return;
  }
  double mean = summary.sum / summary.count;
  double variance = summary.count > 1 ? (summary.squares - summary.sum * mean) / (summary.count - 1)
                                      : 0;
  wchar_t report[512];
  _snwprintf(report, 511,
             L"Werte:\t\t%ld\nMittelwert:\t%.8g\nStreuung:\t%.3g\nKleinster Wert:\t%.8g\n"
             L"Größter Wert:\t%.8g",
             summary.count, mean, variance > 0 ? sqrt(variance) : 0, summary.smallest,
             summary.largest);
  report[511] = 0;
  MessageBoxW(NULL, report, kTitle, MB_ICONINFORMATION);
}

static BOOL ChooseSeries(wchar_t* path, DWORD size) {
  OPENFILENAMEW dialog = {0};
  dialog.lStructSize = sizeof dialog;
  dialog.lpstrFilter = L"Messreihen (*.messreihe; *.csv)\0*.messreihe;*.csv\0Alle Dateien\0*.*\0";
  dialog.lpstrFile = path;
  dialog.nMaxFile = size;
  dialog.lpstrTitle = L"Messreihe öffnen";
  dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
  return GetOpenFileNameW(&dialog);
}

void Start(void) {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  wchar_t chosen[1024] = L"";
  if (count > 1) {
    ShowSeries(arguments[1]);
  } else if (ChooseSeries(chosen, 1024)) {
    ShowSeries(chosen);
  }
  ExitProcess(0);
}
