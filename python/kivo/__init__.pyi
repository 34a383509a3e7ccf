# Types of the kivo package's public functions; the docstrings in _convert.py say how each input maps.
from typing import Any, Literal, Optional, Union, overload

import datetime

import numpy as np
import numpy.typing as npt

__version__: str

_Scalar = Union[float, int, bool, np.number, np.datetime64, np.timedelta64, datetime.date, datetime.time,
                datetime.timedelta, None]
_Errors = Literal["coerce", "raise"]

def catalog() -> list[dict[str, Any]]: ...

@overload
def format(values: _Scalar, spec: str, *, missing_char: Optional[str] = ...) -> Union[str, bytes]: ...
@overload
def format(values: npt.ArrayLike, spec: str, *, missing_char: Optional[str] = ...) -> Any: ...

@overload
def informat(texts: Union[str, bytes], spec: str, *, datestyle: Optional[str] = ...,
             yearcutoff: Union[int, str, None] = ..., errors: _Errors = ...,
             as_datetime: Literal[False] = ...) -> float: ...
@overload
def informat(texts: Union[str, bytes], spec: str, *, datestyle: Optional[str] = ...,
             yearcutoff: Union[int, str, None] = ..., errors: _Errors = ...,
             as_datetime: Literal[True]) -> Union[np.datetime64, np.timedelta64]: ...
@overload
def informat(texts: Any, spec: str, *, datestyle: Optional[str] = ..., yearcutoff: Union[int, str, None] = ...,
             errors: _Errors = ..., as_datetime: bool = ...) -> Any: ...

@overload
def missing_codes(values: Union[float, str, bytes, None]) -> str: ...
@overload
def missing_codes(values: Any) -> Any: ...

class Guess:
    informat: str
    datestyle: Optional[str]
    read: int
    unread: int
    left_out: int
    reads_every: bool
    examples: list[tuple[int, str]]
    alternatives: list[tuple[str, str]]
    arguments: str

def guess(texts: Any, *, datestyle: Optional[str] = ..., yearcutoff: Union[int, str, None] = ...) -> Guess: ...
