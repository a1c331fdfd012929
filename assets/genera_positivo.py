#!/usr/bin/env python3
"""Makes positivo.wav: a short rising two-note chime (C6 then E6 with a soft
octave overtone), 22050 Hz, 16-bit mono. Run from this folder to remake it."""
import math
import struct
import wave

RATE = 22050


def note(freq, seconds, volume):
    n = int(RATE * seconds)
    out = []
    for i in range(n):
        t = i / RATE
        attack = min(1.0, t / 0.005)
        decay = math.exp(-5.0 * t / seconds)
        s = math.sin(2 * math.pi * freq * t) + 0.3 * math.sin(4 * math.pi * freq * t)
        out.append(volume * attack * decay * s / 1.3)
    return out


samples = note(1046.5, 0.12, 0.5) + note(1318.5, 0.30, 0.5)
with wave.open("positivo.wav", "wb") as w:
    w.setnchannels(1)
    w.setsampwidth(2)
    w.setframerate(RATE)
    w.writeframes(b"".join(struct.pack("<h", int(max(-1.0, min(1.0, s)) * 32767)) for s in samples))
