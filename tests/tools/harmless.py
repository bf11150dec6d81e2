# Starts programs that meet hostile bytes as a user who can do no harm, in a folder of that user's.
import glob
import os
import shutil
import subprocess

NOBODY = 65534


def give(path):
    """The path is the harmless user's from now on."""
    if os.geteuid() == 0:
        os.chown(path, NOBODY, NOBODY)
    return path


def copied(program, folder):
    """A copy of the program that everybody can reach, with the library that was built with it."""
    os.chmod(folder, 0o755)
    for library in glob.glob(os.path.join(os.path.dirname(os.path.abspath(program)), "../src/libvxsign.so*")):
        shutil.copy(library, folder)
    return shutil.copy(program, folder)


def start(words, **how):
    if os.geteuid() == 0:
        how.update(user=NOBODY, group=NOBODY, extra_groups=[])
    return subprocess.Popen(words, env={**os.environ, "LD_LIBRARY_PATH": os.path.dirname(words[0])}, **how)
