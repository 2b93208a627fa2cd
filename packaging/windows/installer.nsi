; The installer, by NSIS: for one user, without the rights of an administrator. scripts/package-windows
; calls it and defines
;   VERSION   of the program, NUMBERS the same with four parts
;   SIZE      of what is installed, in KiB
;   FILES     a script with the macros InstallFiles and RemoveFiles, made from the files of the archive
;   ICON      the program's icon
;   OUTPUT    the installer
;
; Only what was installed is ever removed, by its names: the user may have picked any folder, and
; settings, maps and pictures lie in another one (see src/platform/ProgramFolder.h).

Target amd64-unicode
ManifestDPIAware true
RequestExecutionLevel user
SetCompressor /SOLID lzma

!include MUI2.nsh
!include "${FILES}"

Name "Tovrel"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Tovrel"
InstallDirRegKey HKCU "Software\Tovrel" "Folder"
BrandingText "Tovrel ${VERSION}"

VIProductVersion "${NUMBERS}"
VIAddVersionKey "CompanyName" "Tovrel authors"
VIAddVersionKey "FileDescription" "Installs Tovrel"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "2026 Tovrel authors, MIT licence"
VIAddVersionKey "ProductName" "Tovrel"
VIAddVersionKey "ProductVersion" "${VERSION}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\tovrel.exe"
!define MUI_FINISHPAGE_NOREBOOTSUPPORT
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tovrel"
!define APPLICATION "Software\Classes\Applications\tovrel.exe"
!define LOG_CLASS "Software\Classes\Tovrel.Log"

; A program that runs holds its file: half of it would be replaced, or removed.
!macro EndIfRunning
    ${If} ${FileExists} "$INSTDIR\tovrel.exe"
        ClearErrors
        FileOpen $0 "$INSTDIR\tovrel.exe" a
        ${If} ${Errors}
            MessageBox MB_OK|MB_ICONEXCLAMATION \
                "Tovrel is running, or its folder can't be written to. Close it, and start again." \
                /SD IDOK
            SetErrorLevel 3
            Quit
        ${EndIf}
        FileClose $0
    ${EndIf}
!macroend

!macro OpensLogsBy class
    WriteRegStr HKCU "${class}\shell\open\command" "" '"$INSTDIR\tovrel.exe" --log "%1"'
!macroend

; Offered under "Open with"; what opens logs by itself stays the user's choice.
!macro OfferFor extension
    WriteRegStr HKCU "${APPLICATION}\SupportedTypes" "${extension}" ""
    WriteRegStr HKCU "Software\Classes\${extension}\OpenWithProgids" "Tovrel.Log" ""
!macroend

!macro OfferNoMoreFor extension
    DeleteRegValue HKCU "Software\Classes\${extension}\OpenWithProgids" "Tovrel.Log"
    DeleteRegKey /ifempty HKCU "Software\Classes\${extension}\OpenWithProgids"
    DeleteRegKey /ifempty HKCU "Software\Classes\${extension}"
!macroend

!macro TellTheDesktop
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)' ; SHCNE_ASSOCCHANGED
!macroend

Section
    !insertmacro EndIfRunning
    ; An older version may have files that this one lacks.
    ReadRegStr $1 HKCU "Software\Tovrel" "Folder"
    ${If} $1 != ""
    ${AndIf} ${FileExists} "$1\uninstall.exe"
        ExecWait '"$1\uninstall.exe" /S _?=$1' $2
        ${If} $2 <> 0
            SetErrorLevel 3
            Abort "The version in $1 could not be removed."
        ${EndIf}
        Delete "$1\uninstall.exe" ; which can't do so while it runs from there
        RMDir "$1"
    ${EndIf}

    !insertmacro InstallFiles
    SetOutPath "$INSTDIR"
    FileOpen $0 "$INSTDIR\tovrel.installed" w
    FileWrite $0 "With this file here, settings, maps and pictures lie in the user's own folder.$\r$\n"
    FileClose $0
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Tovrel.lnk" "$INSTDIR\tovrel.exe"

    WriteRegStr HKCU "Software\Tovrel" "Folder" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Tovrel"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\tovrel.exe"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Tovrel authors"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1

    WriteRegStr HKCU "${APPLICATION}" "FriendlyAppName" "Tovrel"
    WriteRegStr HKCU "${LOG_CLASS}" "" "Log of radio contacts (ADIF)"
    WriteRegStr HKCU "${LOG_CLASS}\DefaultIcon" "" "$INSTDIR\tovrel.exe,0"
    !insertmacro OpensLogsBy "${APPLICATION}"
    !insertmacro OpensLogsBy "${LOG_CLASS}"
    !insertmacro OfferFor .adi
    !insertmacro OfferFor .adif
    !insertmacro TellTheDesktop
SectionEnd

Section Uninstall
    !insertmacro EndIfRunning
    !insertmacro OfferNoMoreFor .adi
    !insertmacro OfferNoMoreFor .adif
    DeleteRegKey HKCU "${LOG_CLASS}"
    DeleteRegKey HKCU "${APPLICATION}"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey HKCU "Software\Tovrel"
    Delete "$SMPROGRAMS\Tovrel.lnk"
    !insertmacro RemoveFiles
    Delete "$INSTDIR\tovrel.installed"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    !insertmacro TellTheDesktop
SectionEnd
