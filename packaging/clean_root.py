"""Installs the Debian package into a bare root of its own and uses the program there: clean_root.py PACKAGE.deb. Needs root."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "tests/e2e"))
import desktop  # noqa: E402
import program  # noqa: E402


class Root:
    """A Debian with nothing in it."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.run(["debootstrap", "--variant=minbase", "bookworm", folder])
        shutil.copy("/etc/resolv.conf", self.folder / "etc/resolv.conf")

    @staticmethod
    def run(command):
        done = subprocess.run(command, capture_output=True, text=True, env={"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"})
        if done.returncode:
            sys.exit(f"{command}:\n{done.stdout}{done.stderr}")
        return done.stdout

    def chroot(self, *command):
        return self.run(["chroot", self.folder, "/usr/bin/env", "DEBIAN_FRONTEND=noninteractive", *command])


def use(root):
    """Starts the program in the root, on a screen from outside, and calculates with it."""
    screen = desktop.Desktop()
    inside = root.folder / screen.folder.relative_to("/")
    inside.mkdir(parents=True)
    root.run(["mount", "--bind", screen.folder, inside])
    try:
        program.load(screen.environment)
        os.environ["ZELTA_PROGRAM"] = "chroot"
        app = program.Program(screen, [str(root.folder), "/usr/bin/zelta-basic"])
        app.type("12+3")
        app.key("Return")
        app.wait_text("15")
        app.go("Days Between")
        app.wait("Total days: 0 (end date not included)")
        assert app.end() == 0
    except Exception:
        print((screen.folder / "program.log").read_text())
        raise
    finally:
        root.run(["umount", "--lazy", inside])
        screen.close()


def main():
    package = pathlib.Path(sys.argv[1])
    with tempfile.TemporaryDirectory(dir="/var/tmp", prefix="zelta-root-") as folder:
        print("clean root: making it", flush=True)
        root = Root(folder)
        print(f"clean root: installing {package.name}", flush=True)
        shutil.copy(package, root.folder / "tmp")
        root.chroot("apt-get", "update")
        root.chroot("apt-get", "install", "-y", "--no-install-recommends", f"/tmp/{package.name}")
        print("clean root: using the program", flush=True)
        use(root)
        root.chroot("apt-get", "purge", "-y", "zelta-basic")
        left = [path for path in (root.folder / "usr").rglob("*zelta*")]
        assert not left, f"left behind: {left}"
    print("clean root: installed, used, removed")


if __name__ == "__main__":
    main()
