#!/usr/bin/python3
"""pymodbus as the host of the Modbus devices of vxsim: modbusClients.py RTU_PORT TCP_PORT SERIAL_DEVICE"""
import sys

from pymodbus.client import ModbusSerialClient, ModbusTcpClient, ModbusUdpClient

try:
    from pymodbus.transaction import ModbusRtuFramer as RTU, ModbusSocketFramer as SOCKET
except ImportError:  # newer ones name them
    from pymodbus import FramerType

    RTU, SOCKET = FramerType.RTU, FramerType.SOCKET

VSLS, LC = 5, 11
SECTION_1, WHOLE = 100, 0xFF00
failures = 0


def check(road, what, found, wanted):
    global failures
    if found != wanted:
        failures += 1
        print(f"FAILED: {road}, {what}: {found}, not {wanted}", file=sys.stderr)


def exception_of(answer):
    return answer.exception_code if answer.isError() else None


def use(road, client, base):
    check(road, "connects", client.connect(), True)
    check(road, "writes one", client.write_register(SECTION_1 + 3, base, slave=VSLS).isError(), False)
    check(road, "writes several", client.write_registers(SECTION_1 + 4, [base + 1, base + 2], slave=VSLS).count, 2)
    check(road, "reads several", client.read_holding_registers(SECTION_1 + 3, count=3, slave=VSLS).registers,
          [base, base + 1, base + 2])
    check(road, "reads many", len(client.read_holding_registers(WHOLE, count=64, slave=LC).registers), 64)
    check(road, "no such register", exception_of(client.read_holding_registers(WHOLE + 64, count=1, slave=LC)), 2)
    check(road, "a fixed register", exception_of(client.write_register(WHOLE + 8, 1, slave=LC)), 2)
    check(road, "no such function", exception_of(client.read_input_registers(WHOLE, count=1, slave=LC)), 1)
    check(road, "and goes on", client.read_holding_registers(SECTION_1 + 22, count=1, slave=VSLS).registers, [5])
    client.close()


rtu_port, tcp_port, device = int(sys.argv[1]), int(sys.argv[2]), sys.argv[3]
use("RTU over TCP", ModbusTcpClient("127.0.0.1", port=rtu_port, framer=RTU), 100)
use("RTU over UDP", ModbusUdpClient("127.0.0.1", port=rtu_port, framer=RTU), 200)
use("RTU on the serial line", ModbusSerialClient(device, baudrate=115200), 300)
use("Modbus TCP", ModbusTcpClient("127.0.0.1", port=tcp_port, framer=SOCKET), 400)
use("Modbus TCP over UDP", ModbusUdpClient("127.0.0.1", port=tcp_port, framer=SOCKET), 500)
sys.exit(failures != 0)
