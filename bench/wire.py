"""A stretch of network with latency, in user space: needs no more than a network namespace.

Every packet that is sent to FAR comes back after the delay with its two addresses exchanged, so
that who connects to FAR reaches the servers that listen on NEAR, and each direction takes the delay.
"""

import collections
import fcntl
import os
import select
import struct
import subprocess
import sys
import time

NEAR, FAR = "192.0.2.1", "192.0.2.2"
PACKET = 65536


def open_wire():
    wire = os.open("/dev/net/tun", os.O_RDWR)
    tun_without_header = 0x0001 | 0x1000
    fcntl.ioctl(wire, 0x400454CA, struct.pack("16sH22x", b"wire", tun_without_header))  # TUNSETIFF
    for command in ("link set lo up", f"addr add {NEAR} peer {FAR} dev wire", "link set wire up"):
        subprocess.run(["ip", *command.split()], check=True)
    return wire


def turned(packet):
    """The addresses exchanged; no checksum changes by that."""
    return packet[:12] + packet[16:20] + packet[12:16] + packet[20:]


def carry(wire, delay):
    waiting = collections.deque()
    while True:
        rest = max(0, waiting[0][0] - time.monotonic()) if waiting else None
        if select.select([wire], [], [], rest)[0]:
            packet = os.read(wire, PACKET)
            if packet[0] >> 4 == 4:
                waiting.append((time.monotonic() + delay, turned(packet)))
        while waiting and waiting[0][0] <= time.monotonic():
            os.write(wire, waiting.popleft()[1])


def main():
    wire = open_wire()
    print("up", flush=True)
    carry(wire, float(sys.argv[1]) / 1000)


if __name__ == "__main__":
    main()
