// An installation script as Packwright writes them.
#pragma once

#include <string_view>

namespace tests {

/// Three files, each installed by another rule: one packaged with every statement there is, one
/// packaged, one not.
inline constexpr std::string_view kSampleScript =
    R"(' QUILLON PACKWRIGHT INSTALLATION SCRIPT FOR TESSEL
' Copyright (C) 2031 by Änne by Müller
' Created with Quillon Packwright 1.2.3

Sub InstallMain()
'Display a message allowing the user to cancel installation
If Ask("Probe installieren?") = False Then
	CancelInstall "Abbruch", True
End If

SetAppKey "probe", "Die Probe"
RegPrd "probe", "Die Probe", 3

SelectInstallFolder PathStr("%ProgramFiles%\Probe")

'Install files for "Das "Programm""
If Extract("%SrcPath%\Probe.zip", "1.dll", "%TempPath%\1.dll") Then
If Not ReplSafe("%TempPath%\1.dll", "%InstallPath%\a.dll", , True) Then
ErrMsg "Fehler bei %InstallPath%\a.dll", "Fehler"
CancelInstall "Fehler beim Installieren von Dateien"
Else
'TO-DO: Register path for this file...
End If
Del "%TempPath%\1.dll"
End If
If Extract("%SrcPath%\Probe.zip", "2.txt", "%TempPath%\2.txt") Then
If Not Add("%TempPath%\2.txt", "C:\Texte\b.txt") Then
ErrMsg "Fehler bei C:\Texte\b.txt", "Fehler"
Else
'Self-register this file
SelfReg "C:\Texte\b.txt"
End If
Del "%TempPath%\2.txt"
End If
If Not Copy("%SrcPath%\InstallPath\c", "%InstallPath%\x\c") Then
ErrMsg "Fehler bei %InstallPath%\x\c", "Fehler"
End If

End Sub

'--- End of installation script ---
)";

}  // namespace tests
