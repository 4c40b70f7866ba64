"""The seeds of the parsers, each put into a drawing whose reader hands it to that parser."""

import base64

import make_pdf_examples  # beside the examples; pdf.py made its folder known


def svg(body):
    return (b'<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="100" height="100">'
            + body + b"</svg>")


def attribute(before, after):
    def make(data):
        text = data.replace(b"&", b"&amp;").replace(b"<", b"&lt;").replace(b'"', b"&quot;").replace(b"\0", b"")
        return svg(before + text + after)
    return make


def dxf(before, after=b""):
    def make(data):
        text = data.replace(b"\n", b" ").replace(b"\r", b" ")
        return b"0\nSECTION\n2\nENTITIES\n" + before + text + b"\n" + after + b"0\nENDSEC\n0\nEOF\n"
    return make


def pdf(content, **streams):
    """A page with this content, a font whose texts another stream maps, and an image."""
    document = make_pdf_examples.Document()
    text_map = document.add_stream(streams.get("text_map", b"1 beginbfchar\n<0041> <0042>\nendbfchar\n"), packed=False)
    font = document.add("<< /Type /Font /Subtype /Type0 /BaseFont /Plate /Encoding /Identity-H "
                        f"/ToUnicode {text_map} 0 R >>")
    image = document.add_stream(streams.get("image", b"\0"), "/Type /XObject /Subtype /Image /Width 1 /Height 1 "
                                f"/ColorSpace /DeviceGray /BitsPerComponent 8{streams.get('filters', '')}", packed=False)
    stream = document.add_stream(content, packed=False)
    page = document.add(f"<< /Type /Page /MediaBox [ 0 0 99 99 ] /Resources << /Font << /F1 {font} 0 R >> "
                        f"/XObject << /Im1 {image} 0 R >> >> /Contents {stream} 0 R >>")
    return document.with_table(document.add_pages([page]))


def content(data):
    return pdf(data)


def text_map(data):
    return pdf(b"BT\n/F1 9 Tf\n<00410042> Tj\nET\n", text_map=data)


def filtered(name):
    return lambda data: pdf(b"q\n20 0 0 20 5 5 cm\n/Im1 Do\nQ\n", image=data, filters=f" /Filter /{name}")


def picture(data):
    return svg(b'<image width="9" height="9" xlink:href="data:image/png;base64,' + base64.b64encode(data) + b'"/>')


HOSTS = {
    "ascii85": (".pdf", filtered("ASCII85Decode")),
    "ascii_hex": (".pdf", filtered("ASCIIHexDecode")),
    "base64": (".svg", attribute(b'<image width="9" height="9" xlink:href="data:image/png;base64,', b'"/>')),
    "cmap": (".pdf", text_map),
    "color": (".svg", attribute(b'<rect width="9" height="9" stroke="', b'"/>')),
    "content_text": (".pdf", content),
    "css": (".svg", lambda data: svg(b"<style>" + data + b'</style><rect class="a b c" width="9" height="9"/>')),
    "dxf_text": (".dxf", dxf(b"0\nTEXT\n40\n1\n1\n")),
    "flate": (".pdf", filtered("FlateDecode")),
    "jpeg2000": (".pdf", filtered("JPXDecode")),
    "lzw": (".pdf", filtered("LZWDecode")),
    "mtext": (".dxf", dxf(b"0\nMTEXT\n40\n1\n1\n")),
    "numbers": (".svg", attribute(b'<rect stroke="red" height="9" width="', b'"/>')),
    "page_content": (".pdf", content),
    "path_data": (".svg", attribute(b'<path stroke="red" d="', b'"/>')),
    "picture": (".svg", picture),
    "run_length": (".pdf", filtered("RunLengthDecode")),
    "transform_list": (".svg", attribute(b'<rect stroke="red" width="9" height="9" transform="', b'"/>')),
    "xml_source": (".svg", lambda data: data),
}


def drawings(corpus):
    """(name, suffix, file) of each seed that has a host. Those of the others are in forms that only the fuzz target
    knows, or as the drawings of the corpus have them."""
    for folder, (suffix, make) in HOSTS.items():
        for path in sorted((corpus / folder).iterdir()):
            yield f"{folder}.{path.name}", suffix, make(path.read_bytes())
