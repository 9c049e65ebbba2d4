# thousand_pages.py FILE: a PDF of 1000 pages of running text, as a word processor writes it, the same on every run.
import random
import sys
import zlib

WORDS = "the printer takes paper from its tray and lays toner on the sheet while a job waits behind the other".split()


def text(random_words):
    lines = (" ".join(random_words.choice(WORDS) for _ in range(13)) for _ in range(45))
    return "BT /F1 11 Tf 14 TL 72 760 Td " + " ".join(f"({line}) Tj T*" for line in lines) + " ET"


def main(path):
    random_words = random.Random(4820)
    objects = [b"<< /Type /Catalog /Pages 2 0 R >>", b"", b"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"]
    pages = []
    for _ in range(1000):
        packed = zlib.compress(text(random_words).encode())
        objects.append(b"<< /Length %d /Filter /FlateDecode >>\nstream\n%b\nendstream" % (len(packed), packed))
        objects.append(b"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595.28 841.89] /Resources << /Font << /F1 3 0 R >> >>"
                       b" /Contents %d 0 R >>" % len(objects))
        pages.append(len(objects))
    kids = " ".join(f"{page} 0 R" for page in pages)
    objects[1] = f"<< /Type /Pages /Count {len(pages)} /Kids [{kids}] >>".encode()
    out, places = bytearray(b"%PDF-1.5\n"), []
    for number, body in enumerate(objects, 1):
        places.append(len(out))
        out += b"%d 0 obj\n%b\nendobj\n" % (number, body)
    table = "".join(f"{place:010} 00000 n \n" for place in places)
    out += (f"xref\n0 {len(objects) + 1}\n0000000000 65535 f \n{table}trailer\n<< /Size {len(objects) + 1} /Root 1 0 R >>\n"
            f"startxref\n{len(out)}\n%%EOF\n").encode()
    with open(path, "wb") as file:
        file.write(out)


main(sys.argv[1])
