// Asks a sign for a sign of life and shows a text: vxsign-hello [HOST [PORT [TEXT]]]
mod vxsign;

use std::error::Error;
use std::ffi::CString;
use vxsign::{check, raw, SignError};

const RED: u32 = 0x0000_FF2F; // '/', then red, green and blue
const FONT: u32 = b'1' as u32;
const MODE: u32 = b'0' as u32;
const SECONDS: u32 = 5;

/// The sign of this thread, until the thread turns to another one.
fn turn_to(host: &CString, port: u32) -> Result<(), Box<dyn Error>> {
    // SAFETY: all of its fields may be zero.
    let mut config: raw::vxApiConfig = unsafe { std::mem::zeroed() };
    config.kind = raw::VX_CHANNEL_UDP;
    config.port = port;
    config.timeoutMs = 1000;
    let host = host.as_bytes_with_nul();
    if host.len() > 16 {
        return Err("the host is an IPv4 address".into());
    }
    for (to, from) in config.host.iter_mut().zip(host) {
        *to = *from as _;
    }
    // SAFETY: the library copies the configuration.
    Ok(check(unsafe { raw::vxInitAPI(&config) })?)
}

fn ping() -> Result<(u16, u16, u32), SignError> {
    let (mut first, mut second, mut third) = (0, 0, 0);
    // SAFETY: the three numbers live longer than the call.
    check(unsafe { raw::vxConnectTest(&mut first, &mut second, &mut third) })?;
    Ok((first, second, third))
}

fn show(text: &str, host: &CString, port: u32) -> Result<(), SignError> {
    // SAFETY: the text has as many bytes as the call is told, the host ends with its NUL.
    check(unsafe {
        raw::vxShowMsg(text.as_ptr(), text.len() as u32, FONT, RED, MODE, SECONDS, host.as_ptr(), port, 0, 1)
    })
}

fn run() -> Result<(), Box<dyn Error>> {
    let mut arguments = std::env::args().skip(1);
    let host = CString::new(arguments.next().unwrap_or_else(|| "127.0.0.1".into()))?;
    let port = arguments.next().map_or(Ok(9520), |text| text.parse())?;
    let text = arguments.next().unwrap_or_else(|| "HELLO 42".into());
    turn_to(&host, port)?;
    println!("the sign answers: {:?}", ping()?);
    show(&text, &host, port)?;
    Ok(())
}

fn main() {
    if let Err(error) = run() {
        eprintln!("{error}");
        if matches!(error.downcast_ref(), Some(&SignError(raw::VX_COMMUNICATION))) {
            eprintln!("is there a sign, and does it listen on this port?");
        }
        std::process::exit(1);
    }
}
