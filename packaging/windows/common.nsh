; What installation and removal share: the end of a running copy, one setup at a time.

!define ErrorAlreadyExists 183
!define Synchronize 0x100000
!define QueryLimitedInformation 0x1000
!define GenericWrite 0x40000000
!define ShareAll 7
!define OpenExisting 3
!define OwnerOfWindow 4
!define Patience 10000 ; milliseconds that a copy has to save its list and end

!macro CommonFunctions un

Function ${un}RefuseSecondSetup
  System::Call 'kernel32::CreateMutexW(p 0, i 0, w "Murala.Setup") p .r0 ?e'
  Pop $1
  ${If} $1 = ${ErrorAlreadyExists}
    MessageBox MB_OK|MB_ICONEXCLAMATION "Another setup of Murala is at work. Let it finish first." /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
FunctionEnd

; Asks the window $0 to close when it is the main window of the program in $INSTDIR, and waits for the
; end of its process. A window that a dialog keeps disabled is not asked: it would close later, when
; nobody expects it any more.
Function ${un}CloseIfOurs
  System::Call 'user32::GetWindow(p r0, i ${OwnerOfWindow}) p .r1'
  System::Call 'user32::GetClassNameW(p r0, w .r2, i ${NSIS_MAX_STRLEN})'
  ; The other one is hidden, and only there for other copies to find.
  ${If} $1 <> 0
  ${OrIf} $2 == "TfMain"
    Return
  ${EndIf}
  System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r1)'
  System::Call 'kernel32::OpenProcess(i ${Synchronize}|${QueryLimitedInformation}, i 0, i r1) p .r2'
  ${If} $2 = 0
    Return
  ${EndIf}
  System::Call 'kernel32::QueryFullProcessImageNameW(p r2, i 0, w .r3, *i ${NSIS_MAX_STRLEN})'
  System::Call 'user32::IsWindowEnabled(p r0) i .r4'
  ${If} $3 == "$INSTDIR\Murala.exe"
    ${If} $4 <> 0
      StrCpy $WasRunning 1
      System::Call 'user32::PostMessageW(p r0, i ${WM_CLOSE}, p 0, p 0)'
      System::Call 'kernel32::WaitForSingleObject(p r2, i ${Patience})'
    ${EndIf}
  ${EndIf}
  System::Call 'kernel32::CloseHandle(p r2)'
FunctionEnd

; Several windows may have this caption: a message of the program, a folder of that name.
Function ${un}CloseRunningCopy
  StrCpy $5 0
  ${Do}
    System::Call 'user32::FindWindowExW(p 0, p r5, p 0, w "Murala") p .r5'
    ${If} $5 = 0
      ${ExitDo}
    ${EndIf}
    StrCpy $0 $5
    Call ${un}CloseIfOurs
  ${Loop}
FunctionEnd

; Whether $0 can be written ($1 is 1) or is a program that runs. Its end may take a moment to arrive at
; the file.
Function ${un}IsFree
  StrCpy $1 1
  ${IfNot} ${FileExists} $0
    Return
  ${EndIf}
  ${For} $2 1 20
    System::Call 'kernel32::CreateFileW(w r0, i ${GenericWrite}, i ${ShareAll}, p 0, i ${OpenExisting}, i 0, p 0) p .r3'
    ${If} $3 <> -1
      System::Call 'kernel32::CloseHandle(p r3)'
      Return
    ${EndIf}
    Sleep 100
  ${Next}
  StrCpy $1 0
FunctionEnd

; Ends the copy that runs from $INSTDIR; $0 is empty then, and else a program that cannot be replaced.
Function ${un}FreePrograms
  ${Do}
    Call ${un}CloseRunningCopy
    StrCpy $0 "$INSTDIR\murala-compose.exe"
    Call ${un}IsFree
    ${If} $1 = 1
      StrCpy $0 "$INSTDIR\Murala.exe"
      Call ${un}IsFree
    ${EndIf}
    ${If} $1 = 1
      StrCpy $0 ""
      Return
    ${EndIf}
  ${LoopWhile} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$0 is in use. Close the dialogs and messages that Murala shows, then try again." /SD IDCANCEL IDRETRY`
FunctionEnd

; Whether the user has written into Murala.default.ini: all files of a package have the same time.
Function ${un}AreDefaultsChanged
  StrCpy $KeepsDefaults 0
  ${IfNot} ${FileExists} "$INSTDIR\Murala.default.ini"
    Return
  ${EndIf}
  StrCpy $2 ""
  GetFileTime "$INSTDIR\Murala.default.ini" $0 $1
  GetFileTime "$INSTDIR\Murala.exe" $2 $3
  ${If} "$0.$1" != "$2.$3"
    StrCpy $KeepsDefaults 1
  ${EndIf}
FunctionEnd

!macroend

!insertmacro CommonFunctions ""
!insertmacro CommonFunctions "un."
