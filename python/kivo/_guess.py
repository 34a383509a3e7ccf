"""kivo.guess: which informat reads a column, decided by all of its texts."""

from . import _kivo, _shapes, _values


class Guess:
    """What kivo.guess found. `informat` is the spec and `datestyle` the date style the reading needs (or
    None): kivo.informat(texts, guess.informat, datestyle=guess.datestyle) reads the column. `read` and
    `unread` count the texts that are neither empty nor a missing-value notation; `examples` holds the
    first unread ones as (position, text); `alternatives` the other informats that read every text, as
    (informat, why it lost); `reads_every` is True when the proposal reads every text. str() gives the
    report kivodt guess prints."""

    def __init__(self, fields):
        self.informat = fields["informat"]
        self.datestyle = fields["datestyle"]
        self.read = fields["read"]
        self.unread = fields["unread"]
        self.left_out = fields["left_out"]
        self.reads_every = fields["reads_every"]
        self.examples = list(fields["examples"])
        self.alternatives = list(fields["alternatives"])
        self.arguments = fields["arguments"]
        self._report = fields["report"]

    def __str__(self):
        return self.arguments + "\n" + self._report.rstrip("\n")

    def __repr__(self):
        return f"Guess(informat={self.informat!r}, datestyle={self.datestyle!r}, read={self.read}, unread={self.unread})"


def guess(texts, *, datestyle=None, yearcutoff=None):
    """Which informat reads these texts, decided by all of them: the texts kivo.informat takes (str or
    bytes, alone, in lists, numpy 'U'/'S'/object arrays, pandas object or string columns; None, NaN,
    NaT and pd.NA are left out). A fixed layout that reads every text comes before the free-form
    informats; the date order comes from the texts (a number above 12 is the day), else from the
    datestyle given or the locale's. Returns a Guess."""
    shape = _shapes.take(texts, lambda values: values.to_numpy().reshape(-1))
    flat = shape.flat
    items = _shapes.native(flat) if flat.dtype.kind in "USO" else flat
    return Guess(_kivo.guess_texts(items, _values.MISSING_OBJECTS, datestyle,
                                   None if yearcutoff is None else str(yearcutoff)))
