"""Exit 0 when a wineserver holds the lock of the given prefix, else 1."""
import fcntl
import os
import sys

prefix = sys.argv[1]
try:
    st = os.stat(prefix)
except OSError:
    sys.exit(1)
lock = "/tmp/.wine-%d/server-%x-%x/lock" % (os.getuid(), st.st_dev, st.st_ino)
try:
    fd = os.open(lock, os.O_RDWR)
except OSError:
    sys.exit(1)
try:
    fcntl.lockf(fd, fcntl.LOCK_EX | fcntl.LOCK_NB)
except OSError:
    sys.exit(0)
fcntl.lockf(fd, fcntl.LOCK_UN)
sys.exit(1)
