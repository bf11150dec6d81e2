// What bindgen makes of the headers, and results as Rust has them.
use std::ffi::CStr;
use std::fmt;

#[allow(dead_code, non_camel_case_types, non_snake_case, non_upper_case_globals, clippy::all)]
pub mod raw {
    include!(concat!(env!("OUT_DIR"), "/vxsign.rs"));
}

/// A result word other than 0.
#[derive(Debug, PartialEq, Eq)]
pub struct SignError(pub u32);

impl fmt::Display for SignError {
    fn fmt(&self, out: &mut fmt::Formatter) -> fmt::Result {
        // SAFETY: the texts are constants of the library.
        let text = unsafe { CStr::from_ptr(raw::vxErrorDesc(self.0)) };
        write!(out, "{} ({})", text.to_string_lossy(), self.0)
    }
}

impl std::error::Error for SignError {}

pub fn check(result: u32) -> Result<(), SignError> {
    match result {
        0 => Ok(()),
        code => Err(SignError(code)),
    }
}
