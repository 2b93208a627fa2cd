"""The packages in the hands of a user: the archive unpacked, the installer run."""

import shutil
import subprocess
import zipfile

from windows import expect

# What users call their folders.
UNPACKED = "Größe/Привет, мир/世界 Ω & 100 %"
LOG = "Журнал ä.adi"
HOME = ("--home", "41.7,-72.7")
MARKER = "tovrel.installed"


def unpack(archive, folder):
    with zipfile.ZipFile(archive) as packed:
        packed.extractall(folder)
    return next(folder.iterdir())


def same_as_here(windows, programs, native, folder):
    """What is drawn and exported is what this machine's build draws and exports, to the byte."""
    log = folder / LOG
    shutil.copy(programs / "sample.adi", log)
    wanted = {
        "report.json": ("plot", LOG, *HOME, "--report"),
        # Letters are drawn by the system's own fonts, and a picture with contacts tells the time.
        "map.png": ("plot", LOG, *HOME, "--size", "1600", "--base-map"),
        "any.json": ("plot", LOG, "--log-format", "adif", *HOME, "--report"),
    }
    for name, command in wanted.items():
        made = {}
        for system, program in (("here", [native / "tovrel-batch"]),
                                ("there", ["wine", programs / "tovrel-batch.exe"])):
            (folder / name).unlink(missing_ok=True)
            windows_run(windows, folder, *program, *command, name)
            made[system] = (folder / name).read_bytes()
        expect(f"{name} is the same here and there ({len(made['here'])} bytes)",
               made["here"] == made["there"])


def windows_run(windows, folder, *command):
    subprocess.run([str(part) for part in command], cwd=folder, env=windows.environment,
                   stdin=subprocess.DEVNULL, check=True, capture_output=True, timeout=300)


def check_archive(windows, archive, native):
    folder = windows.root / UNPACKED
    folder.mkdir(parents=True)
    programs = unpack(archive, folder)
    expect("the archive has no mark of an installer", not (programs / MARKER).exists())
    same_as_here(windows, programs, native, folder)
    return programs


def check_installer(windows, setup):
    before = files(windows.drive)
    windows.run("wine", setup, "/S")
    uninstall = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tovrel"
    programs = windows.path(windows.registry(uninstall, "InstallLocation"))
    expect("the installer puts the programs into the user's folder",
           (programs / "tovrel.exe").exists() and programs.is_relative_to(windows.user))
    expect("a mark tells that they are installed", (programs / MARKER).exists())
    command = windows.registry(r"HKCU\Software\Classes\Tovrel.Log\shell\open\command")
    expect("logs are opened by --log", command.endswith('tovrel.exe" --log "%1"'))
    for kind in (".adi", ".adif"):
        offered = windows.run("wine", "reg", "query",
                              rf"HKCU\Software\Classes\{kind}\OpenWithProgids").decode()
        expect(f"{kind} is offered under \"Open with\"", "Tovrel.Log" in offered)
    expect("the start menu has it", any(path.name == "Tovrel.lnk" for path in
                                        files(windows.user) - before))
    return programs, command


def files(folder):
    return {path for path in folder.rglob("*") if path.is_file() and not path.is_symlink()}


def check_upgrade(windows, setup, programs):
    (programs / "mine.txt").write_text("a file of the user's own\n", encoding="utf-8")
    windows.run("wine", setup, "/S")
    expect("installing again leaves a whole program and the user's file",
           (programs / "tovrel.exe").exists() and (programs / "Qt6Core.dll").exists() and
           (programs / "mine.txt").exists())
