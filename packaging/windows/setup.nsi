; Murala's setup program, for one user, without administrator's rights. package.sh names VERSION, TREE (the
; files), LISTS (their names), HERE, ICON, PICTURE, SETUP, STANDARD_FOLDER and SIZE_KB.
Target amd64-unicode
SetCompressor /SOLID lzma
SetDateSave on
RequestExecutionLevel user
ManifestDPIAware true
ManifestLongPathAware true
ManifestSupportedOS Win10

Name "Murala"
OutFile "${SETUP}"
InstallDir "${STANDARD_FOLDER}" ; its name is put behind a folder that the user picks
BrandingText "Murala ${VERSION}"
InstallButtonText "&Install"
ShowInstDetails nevershow
ShowUninstDetails nevershow
SetOverwrite on
AllowSkipFiles off

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey CompanyName "The Murala developers"
VIAddVersionKey FileDescription "Murala setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey InternalName "Murala setup"
VIAddVersionKey LegalCopyright "(C) 2026 The Murala developers"
VIAddVersionKey OriginalFilename "Murala-${VERSION}-setup.exe"
VIAddVersionKey ProductName "Murala"
VIAddVersionKey ProductVersion "${VERSION}"

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WinVer.nsh

!define UninstallKey "Software\Microsoft\Windows\CurrentVersion\Uninstall\Murala"
!define RunKey "Software\Microsoft\Windows\CurrentVersion\Run"
!define OwnKey "Software\Murala"
; Where the new files lie until all of them are there.
!define Aside "$INSTDIR\Setup.tmp"

Var IsUpdate ; whether Murala is installed already
Var IsFolderNew
Var WasRunning
Var StartsWithWindows
Var IsInExplorer
Var KeepsDefaults
Var Purges
Var Box1
Var Box2

!include "${LISTS}"
!include "${HERE}/common.nsh"
!include "${HERE}/folder.nsh"
!include "${HERE}/entries.nsh"
!include "${HERE}/dialogs.nsh"
!include "${HERE}/install.nsh"
!include "${HERE}/uninstall.nsh"
