#!/usr/bin/env python3
"""Writes the small image files of the tests and the fuzzers' seeds.

Usage: tests/data/images/make_images.py   (from the top folder; needs ImageMagick for the JPEG files)

damaged/ must be refused, odd/ must load. fuzz/corpus/fuzz_bmp and fuzz_jpeg get the whole files
that the fuzzers start from; files that a fuzzer found stay there beside them.
"""
import pathlib
import struct
import subprocess

HERE = pathlib.Path(__file__).parent
CORPUS = HERE.parents[2] / "fuzz" / "corpus"
COLORS = bytes.fromhex("0000ff00 00ff0000 ff000000 ffffff00")


def bmp(bits, pixels, compression=0, width=8, height=4, info=40, extra=b"", colors=COLORS,
        offset=0, length=None, used=None):
    head = struct.pack("<IiiHHIIiiII", info, width, height, 1, bits, compression, 0, 2835, 2835,
                       (len(colors) // 4 if bits <= 8 else 0) if used is None else used, 0)
    head += extra + bytes(max(0, info - len(head) - len(extra)))
    if bits <= 8:
        head += colors
    at = 14 + len(head) + offset
    size = at + len(pixels) if length is None else length
    return b"BM" + struct.pack("<IHHI", size, 0, 0, at) + head + bytes(max(0, offset)) + pixels


def core(pixels):
    head = struct.pack("<IHHHH", 12, 8, 4, 1, 8) + bytes.fromhex("0000ff00ff00ff0000ffffff")
    return b"BM" + struct.pack("<IHHI", 14 + len(head) + len(pixels), 0, 0, 14 + len(head)) + head + pixels


def masks(*values):
    return struct.pack("<%dI" % len(values), *values)


RAMP = bytes(range(256))
RUNS8 = bytes.fromhex("0801 0000 000301020300 0502 0000 00020201 0103 0001")
RUNS4 = bytes.fromhex("0812 0000 000512301000 0000 00020201 0330 0001")

SEEDS = {
    "1bit.bmp": bmp(1, RAMP[:16], colors=COLORS[:8]),
    "4bit.bmp": bmp(4, bytes.fromhex("01230123") * 4),
    "8bit_top_down.bmp": bmp(8, bytes.fromhex("0001020300010203") * 4, height=-4),
    "core.bmp": core(bytes.fromhex("0001020300010203") * 4),
    "16bit.bmp": bmp(16, RAMP[:64]),
    "16bit_565.bmp": bmp(16, RAMP[:64], 3, extra=masks(0xF800, 0x07E0, 0x001F)),
    "24bit.bmp": bmp(24, RAMP[:96]),
    "32bit_v4.bmp": bmp(32, RAMP[:128], 3, info=108, extra=masks(0xFF, 0xFF00, 0xFF0000, 0)),
    "32bit_alpha_mask.bmp": bmp(32, RAMP[:128], 6, extra=masks(0x3FF00000, 0xFFC00, 0x3FF, 3 << 30)),
    "rle8.bmp": bmp(8, RUNS8, 1),
    "rle4.bmp": bmp(4, RUNS4, 2),
}

BMP_DAMAGED = {
    "half_a_header.bmp": SEEDS["24bit.bmp"][:33],
    "last_row_missing.bmp": bmp(24, RAMP[:72], length=0),
    "rows_overflow.bmp": bmp(32, RAMP[:64], width=0x40000001, height=4),
    "height_smallest_integer.bmp": bmp(24, RAMP[:96], height=-2**31),
    "pixels_behind_the_end.bmp": SEEDS["24bit.bmp"][:10] + masks(0xFFFFFFF0) + SEEDS["24bit.bmp"][14:],
    "no_colours.bmp": bmp(8, RAMP[:32], colors=b"", used=4),
    "promises_a_gigapixel.bmp": bmp(1, RAMP[:64], width=32768, height=32768),
    "masks_overlap.bmp": bmp(16, RAMP[:64], 3, extra=masks(0xFF00, 0x0FF0, 0x000F)),
    "run_below_the_picture.bmp": bmp(8, bytes.fromhex("0801 0000") * 5 + b"\0\1", 1),
    "jump_out_of_the_picture.bmp": bmp(8, bytes.fromhex("0002ff00 0101 0001"), 1),
    "runs_without_end.bmp": bmp(8, RUNS8[:-4], 1),
    "jpeg_inside.bmp": bmp(24, RAMP[:96], 4),
}
BMP_ODD = {
    "more_colours_than_possible.bmp": bmp(1, RAMP[:16], colors=COLORS, used=4),
    "says_more_colours_than_it_has.bmp": bmp(8, bytes(32), used=256),
    "gap_before_pixels.bmp": bmp(24, RAMP[:96], offset=100),
    "run_over_the_edge.bmp": bmp(8, bytes.fromhex("ff01 0000") * 4 + b"\0\1", 1),
    "bytes_behind_the_end.bmp": SEEDS["24bit.bmp"] + RAMP,
}


def jpeg(*options):
    run = subprocess.run(["convert", "-size", "24x20", "gradient:red-blue", "-strip", "-quality", "70",
                          *options, "jpeg:-"], check=True, capture_output=True)
    return run.stdout


def main():
    jpegs = {
        "baseline.jpg": jpeg("-interlace", "none", "-sampling-factor", "4:2:0"),
        "full_colour.jpg": jpeg("-interlace", "none", "-sampling-factor", "4:4:4"),
        "grey.jpg": jpeg("-interlace", "none", "-colorspace", "gray"),
        "progressive.jpg": jpeg("-interlace", "JPEG"),
        "cmyk.jpg": jpeg("-interlace", "none", "-colorspace", "CMYK"),
    }
    base, progressive = jpegs["baseline.jpg"], jpegs["progressive.jpg"]
    frame, scan = base.index(b"\xff\xc0"), base.index(b"\xff\xda")
    damaged = {
        "no_end_mark.jpg": base[:-2],
        "half_the_pixels.jpg": base[:(scan + len(base)) // 2],
        "ends_in_header.jpg": base[:scan],
        "size_zero.jpg": base[:frame + 5] + bytes(4) + base[frame + 9:],
        "much_larger_than_its_pixels.jpg": base[:frame + 5] + b"\x1f\x40\x1f\x40" + base[frame + 9:],
        "too_large.jpg": base[:frame + 5] + b"\xff\x00\xff\x00" + base[frame + 9:],
        "twelve_bits.jpg": base[:frame + 4] + b"\x0c" + base[frame + 5:],
        "scan_of_another_component.jpg": base[:scan + 5] + b"\x09" + base[scan + 6:],
        "no_tables.jpg": base[:2] + base[frame:],
        "last_scan_half.jpg": progressive[:-30],
        "cmyk.jpg": jpegs["cmyk.jpg"],
    }
    odd = {
        "bytes_behind_the_end.jpg": base + RAMP,
        "padding_before_the_end.jpg": base[:-2] + bytes(64) + base[-2:],
    }
    for folder, files in ((CORPUS / "fuzz_bmp", SEEDS), (CORPUS / "fuzz_jpeg", jpegs),
                          (HERE / "damaged", {**BMP_DAMAGED, **damaged}), (HERE / "odd", {**BMP_ODD, **odd})):
        folder.mkdir(parents=True, exist_ok=True)
        for name, data in files.items():
            (folder / name).write_bytes(data)


main()
