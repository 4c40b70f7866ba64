"""What one read of a drawing takes, measured in a process of its own."""

import os
import resource
import subprocess
import threading
from typing import NamedTuple


class Figures(NamedTuple):
    seconds: float  # of the processor
    peak: int  # bytes
    held: int  # bytes of the results
    results: int
    ended: str  # "", or why the process had no proper end
    own_seconds: float  # of `seconds`, those outside the system, whose own vary with the machine's other work


def measure(program, path=None, seconds=60, address_space=None):
    """Runs `program --memory PATH` (read_drawing of this folder) for so long at most, with so many bytes of addresses."""

    def limit():
        resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        if address_space is not None:
            resource.setrlimit(resource.RLIMIT_AS, (address_space, address_space))

    arguments = [program, "--memory"] + ([str(path)] if path is not None else [])
    process = subprocess.Popen(arguments, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, errors="replace",
                               preexec_fn=limit)
    watch = threading.Timer(10 * seconds, process.kill)
    watch.start()
    said = process.stderr.read()
    _, status, usage = os.wait4(process.pid, 0)
    watch.cancel()
    process.stderr.close()
    process.returncode = os.waitstatus_to_exitcode(status)
    numbers = {}
    for line in said.splitlines():
        name, _, value = line.partition(" ")
        if name in ("results", "bytes", "peak") and value.isdigit():
            numbers[name] = int(value)
    used = usage.ru_utime + usage.ru_stime
    ended = ""
    if process.returncode < 0:
        ended = "stopped" if used >= 0.9 * seconds or process.returncode == -9 else f"died of signal {-process.returncode}"
    elif process.returncode > 1:
        ended = f"ended with {process.returncode}"
    # What a parent is told of its child counts the parent's own memory from before the program began.
    peak = numbers.get("peak", usage.ru_maxrss * 1024)
    return Figures(used, peak, numbers.get("bytes", 0), numbers.get("results", 0), ended, usage.ru_utime)
