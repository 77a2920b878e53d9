# SPDX-License-Identifier: MIT
"""Sounds as lists of numbers from -1 to 1: files, loudness, trimming, peaks."""
import array
import collections
import math
import wave

RATE = 22050
CEILING = 10 ** (-1 / 20)  # No peak comes nearer to full scale than 1 dB.


def read_wave(path):
    with wave.open(str(path), "rb") as file:
        if (file.getnchannels(), file.getsampwidth(), file.getframerate()) != (1, 2, RATE):
            raise ValueError(f"{path}: expected one channel of 16 bits at {RATE} Hz")
        samples = array.array("h", file.readframes(file.getnframes()))
    return [value / 32768 for value in samples]


def write_wave(path, sound):
    samples = array.array("h", [round(max(-1, min(1, value)) * 32767) for value in sound])
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())


def biquad(sound, b, a):
    x1 = x2 = y1 = y2 = 0.0
    b0, b1, b2 = b
    a1, a2 = a
    result = []
    for x in sound:
        y = b0 * x + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2
        x2, x1, y2, y1 = x1, x, y1, y
        result.append(y)
    return result


def as_heard(sound):
    """The weighting of ITU-R BS.1770: the head's gain above 1.7 kHz, and little below 40 Hz."""
    k = math.tan(math.pi * 1681.974450955533 / RATE)
    q = 0.7071752369554196
    high = 10 ** (3.999843853973347 / 20)
    band = high ** 0.4996667741545416
    a0 = 1 + k / q + k * k
    shelf = biquad(
        sound,
        ((high + band * k / q + k * k) / a0, 2 * (k * k - high) / a0,
         (high - band * k / q + k * k) / a0),
        (2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0))
    k = math.tan(math.pi * 38.13547087602444 / RATE)
    q = 0.5003270373238773
    a0 = 1 + k / q + k * k
    return biquad(shelf, (1, -2, 1), (2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0))


def loudness(sound):
    """LUFS, as in ITU-R BS.1770: blocks of 400 ms, silence and quiet blocks do not count."""
    heard = as_heard(sound)
    block, step = int(0.4 * RATE), int(0.1 * RATE)
    starts = range(0, max(1, len(heard) - block + 1), step)
    powers = [sum(v * v for v in heard[s:s + block]) / len(heard[s:s + block]) for s in starts]
    lufs = lambda power: -0.691 + 10 * math.log10(power)
    gated = [p for p in powers if p > 0 and lufs(p) > -70]
    if not gated:
        return -70.0
    gate = lufs(sum(gated) / len(gated)) - 10
    loud = [p for p in gated if lufs(p) > gate]
    return lufs(sum(loud) / len(loud))


def limit(sound):
    """Turns the sound down for 5 ms about every peak that would pass the ceiling."""
    reach = int(0.005 * RATE)
    gains = [min(1.0, CEILING / abs(v)) if v else 1.0 for v in sound]
    padded = [1.0] * (2 * reach) + gains + [1.0] * (2 * reach)
    window, lowest = collections.deque(), []
    for i, gain in enumerate(padded):
        while window and padded[window[-1]] >= gain:
            window.pop()
        window.append(i)
        if window[0] <= i - (2 * reach + 1):
            window.popleft()
        lowest.append(padded[window[0]])
    # lowest[i] covers i - 2 reach to i; its mean over as long a stretch is a gain without steps.
    total, result = sum(lowest[2 * reach:4 * reach + 1]), []
    for i, value in enumerate(sound):
        result.append(value * total / (2 * reach + 1))
        if i + 1 < len(sound):
            total += lowest[i + 4 * reach + 1] - lowest[i + 2 * reach]
    return result


def level(sound, target):
    """Brings the sound to a loudness in LUFS without passing the ceiling."""
    for _ in range(3):
        gain = 10 ** ((target - loudness(sound)) / 20)
        sound = limit([value * gain for value in sound])
    return sound


def trim(sound, below=0.003, before=0.03, after=0.12):
    """Cuts the silence at both ends, but for the given seconds, and fades these in and out."""
    loud = [i for i, value in enumerate(sound) if abs(value) > below]
    if not loud:
        return []
    first = max(0, loud[0] - int(before * RATE))
    sound = sound[first:loud[-1] + int(after * RATE)]
    return fade(sound, before / 2, after / 2)


def fade(sound, fade_in, fade_out):
    """Half a cosine at either end; the first and the last sample are silent."""
    sound = list(sound)
    for count, place in ((int(fade_in * RATE), lambda i: i),
                         (int(fade_out * RATE), lambda i: -1 - i)):
        for i in range(min(count, len(sound))):
            sound[place(i)] *= 0.5 - 0.5 * math.cos(math.pi * i / count)
    return sound
