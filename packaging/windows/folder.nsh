; The folder of the program. The standard one lies where every user may make folders, so it is made, or
; taken over, with rights for its user, administrators and the system alone: no other user can put a
; library beside the program that it would load.

!define TokenQuery 8
!define TokenUser 1
!define FileObject 1
!define OwnerInformation 1
!define ProtectedList 0x80000004 ; the access list, and that it inherits nothing
!define ReparsePoint 0x400
!define ReadControl 0x20000
!define ListFolder 1
!define ShareForUse 3 ; not to be deleted or renamed meanwhile
!define OpenFolderItself 0x02200000
!define Administrators "S-1-5-32-544"
!define TheSystem "S-1-5-18"
!define OwnFolder "$LOCALAPPDATA\Programs\Murala"

Var UserSid

Function ReadUserSid
  System::Call 'kernel32::GetCurrentProcess() p .r0'
  System::Call 'advapi32::OpenProcessToken(p r0, i ${TokenQuery}, *p .r1) i .r0'
  System::Alloc 256
  Pop $2
  System::Call 'advapi32::GetTokenInformation(p r1, i ${TokenUser}, p r2, i 256, *i) i .r0'
  System::Call '*$2(p .r3)'
  System::Call 'advapi32::ConvertSidToStringSidW(p r3, *p .r4) i .r0'
  System::Call 'kernel32::lstrcpynW(w .r5, p r4, i ${NSIS_MAX_STRLEN})'
  StrCpy $UserSid $5
  System::Call 'kernel32::LocalFree(p r4)'
  System::Free $2
  System::Call 'kernel32::CloseHandle(p r1)'
FunctionEnd

; $9: a security descriptor, to be freed.
Function MakeRights
  StrCpy $8 "O:$UserSidD:P(A;OICI;FA;;;$UserSid)(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)"
  System::Call 'advapi32::ConvertStringSecurityDescriptorToSecurityDescriptorW(w r8, i 1, *p .r9, p 0) i .r8'
FunctionEnd

; Makes $INSTDIR with its rights in one step. $0 is 0 or the system's error.
Function MakeFolder
  ${GetParent} $INSTDIR $0
  CreateDirectory $0
  Call MakeRights
  System::Call '*(i 24, i 0, p r9, i 0, i 0) p .r1' ; SECURITY_ATTRIBUTES with its gaps
  System::Call 'kernel32::CreateDirectoryW(w "$INSTDIR", p r1) i .r2 ?e'
  Pop $0
  ${If} $2 <> 0
    StrCpy $0 0
    StrCpy $IsFolderNew 1
  ${EndIf}
  System::Free $1
  System::Call 'kernel32::LocalFree(p r9)'
FunctionEnd

; Whether $0 belongs to this user, to administrators or to the system: $1.
Function IsOwn
  StrCpy $1 0
  System::Call 'advapi32::GetNamedSecurityInfoW(w r0, i ${FileObject}, i ${OwnerInformation}, *p .r2, p 0, p 0, p 0, *p .r3) i .r4'
  ${If} $4 <> 0
    Return
  ${EndIf}
  System::Call 'advapi32::ConvertSidToStringSidW(p r2, *p .r4) i .r5'
  System::Call 'kernel32::lstrcpynW(w .r5, p r4, i ${NSIS_MAX_STRLEN})'
  System::Call 'kernel32::LocalFree(p r4)'
  System::Call 'kernel32::LocalFree(p r3)'
  ${If} $5 == $UserSid
  ${OrIf} $5 == ${Administrators}
  ${OrIf} $5 == ${TheSystem}
    StrCpy $1 1
  ${EndIf}
FunctionEnd

; Whether $INSTDIR is a folder, no link, in which nobody else has put anything: $1.
Function IsOwnFolder
  System::Call 'kernel32::GetFileAttributesW(w "$INSTDIR") i .r2'
  IntOp $2 $2 & ${ReparsePoint} ; also set in the answer "no attributes"
  StrCpy $1 0
  ${If} $2 <> 0
    Return
  ${EndIf}
  StrCpy $0 $INSTDIR
  Call IsOwn
  FindFirst $6 $7 "$INSTDIR\*.*"
  ${DoWhile} $7 != ""
    ${If} $1 = 0
      ${ExitDo}
    ${EndIf}
    StrCpy $0 "$INSTDIR\$7"
    ${If} $7 != "."
    ${AndIf} $7 != ".."
      Call IsOwn
    ${EndIf}
    FindNext $6 $7
  ${Loop}
  FindClose $6
FunctionEnd

; Gives the folder $INSTDIR, which is there already, the rights of a new one. It is held while it is
; looked at, so that nobody puts another in its place. $0 is 0 or the system's error.
Function TakeOverFolder
  System::Call 'kernel32::CreateFileW(w "$INSTDIR", i ${ReadControl}|${ListFolder}, i ${ShareForUse}, p 0, i ${OpenExisting}, i ${OpenFolderItself}, p 0) p .s ?e'
  Pop $0
  Pop $R0
  ${If} $R0 = -1
    Return
  ${EndIf}
  Call IsOwnFolder
  StrCpy $0 5
  ${If} $1 = 1
    Call MakeRights
    System::Call 'advapi32::GetSecurityDescriptorDacl(p r9, *i, *p .r1, *i)'
    System::Call 'advapi32::SetNamedSecurityInfoW(w "$INSTDIR", i ${FileObject}, i ${ProtectedList}, p 0, p 0, p r1, p 0) i .r0'
    System::Call 'kernel32::LocalFree(p r9)'
  ${EndIf}
  System::Call 'kernel32::CloseHandle(p R0)'
FunctionEnd

; Leaves the rights of a folder alone that the user has picked and that is there already.
; $0 is 0 or the system's error.
Function PrepareFolder
  ${IfNot} ${FileExists} "$INSTDIR\*.*"
    Call MakeFolder
  ${ElseIf} $INSTDIR == "${STANDARD_FOLDER}"
    Call TakeOverFolder
    ${If} $IsUpdate = 1
      StrCpy $0 0 ; it stays where it is
    ${EndIf}
  ${Else}
    StrCpy $0 0
  ${EndIf}
FunctionEnd

; The folder that is proposed. $INSTDIR is the standard one, or that of the command line.
Function ChooseFolder
  ReadRegStr $0 HKCU "${UninstallKey}" "InstallLocation"
  StrCpy $IsUpdate 0
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0\Murala.exe"
    StrCpy $IsUpdate 1
    ${If} $INSTDIR != "${STANDARD_FOLDER}"
    ${AndIf} $INSTDIR != $0
      MessageBox MB_OK|MB_ICONSTOP "Murala is installed in $0. To have it in another folder, remove it there first." /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
    StrCpy $INSTDIR $0
  ${ElseIf} $INSTDIR == "${STANDARD_FOLDER}"
  ${AndIf} ${FileExists} $INSTDIR
    Call IsOwnFolder
    ${If} $1 = 0
      StrCpy $INSTDIR "${OwnFolder}"
    ${EndIf}
  ${EndIf}
FunctionEnd
