"""A disk service with fictional drives, for python-dbusmock (--template).

Parameters:
  drives      name -> properties that differ from those of a drive without any abilities
  blocks      name -> {"drive": name, "number": that of the device, "inside": name of the encrypted device whose content this is,
              "mounted": [path as hexadecimal bytes, ...], "sharing": name of a block device with the
              same file system}; "mounted" makes it a file system
  errors      "name.Method" -> [D-Bus error, text]: the method's answer
  gatherings  method -> number: its calls wait until there are this many; 0 means that they never return

Like the real service, it refuses to unmount what is not mounted, to lock what is not unlocked, and to
release a drive in use. A released drive disappears. It prints "ready" once it can be called.
The methods of TEST_IFACE: Calls lists the calls on disks and drives, in order; MakeOdd gives a property
a wrong value (see ODD_VALUES) or restores it; MakeListOdd gives GetManagedObjects a wrong answer (see
ODD_LISTS).
"""

import dbus
from dbusmock import OBJECT_MANAGER_IFACE, mockobject

BUS_NAME = 'org.freedesktop.UDisks2'
MAIN_OBJ = '/org/freedesktop/UDisks2'
SYSTEM_BUS = True
IS_OBJECT_MANAGER = True

TEST_IFACE = 'org.example.TestDisks'
BLOCK_IFACE = BUS_NAME + '.Block'
DRIVE_IFACE = BUS_NAME + '.Drive'
ENCRYPTED_IFACE = BUS_NAME + '.Encrypted'
FILE_SYSTEM_IFACE = BUS_NAME + '.Filesystem'
ERROR = BUS_NAME + '.Error.'

ODD_VALUES = {
    'text': dbus.String('/', variant_level=1),
    'number': dbus.UInt64(2 ** 63, variant_level=1),
    'flag': dbus.Boolean(True, variant_level=1),
    'texts': dbus.Array(['/media/stick'], signature='s', variant_level=1),
    'bytes': dbus.Array(b'/media/stick\0', signature='y', variant_level=1),
    'numbers': dbus.Array([[47, 109]], signature='ai', variant_level=1),
    'variants': dbus.Array([dbus.String('/media/stick', variant_level=1)], signature='v',
                           variant_level=1),
    'map': dbus.Dictionary({'a': dbus.Array([b'/'], signature='ay')}, signature='say',
                           variant_level=1),
    'nested': dbus.Struct((dbus.Struct((dbus.Int32(1),)),), variant_level=3),
}
ODD_LISTS = {
    'nothing': ('', None),
    'text': ('s', 'objects'),
    'flat map': ('a{sv}', {'a': 1}),
    'texts for paths': ('a{sa{sa{sv}}}', {'a': {BLOCK_IFACE: {'Drive': '/'}}}),
    'no variants': ('a{oa{sa{ss}}}', {'/a': {BLOCK_IFACE: {'Drive': '/'}}}),
    'no list': ('(oa{sa{sv}})', (dbus.ObjectPath('/a'), {BLOCK_IFACE: {'Drive': '/'}})),
}

calls = []
waiting_calls = {}
own_values = {}


def block_path(name):
    return dbus.ObjectPath(f'{MAIN_OBJ}/block_devices/{name}' if name else '/')


def drive_path(name):
    return dbus.ObjectPath(f'{MAIN_OBJ}/drives/{name}' if name else '/')


def mount_points(paths):
    return dbus.Array([dbus.ByteArray(path) for path in paths], signature='ay', variant_level=1)


def mounted_paths(block):
    return list(block.props.get(FILE_SYSTEM_IFACE, {}).get('MountPoints', []))


def blocks_where(interface_property, path):
    return [block for block in mockobject.objects.values()
            if block.props.get(BLOCK_IFACE, {}).get(interface_property) == path]


def error(name, text):
    return dbus.exceptions.DBusException(text, name=ERROR + name)


def forget(path):
    mockobject.objects[MAIN_OBJ].RemoveObject(path)


def unmount(block):
    paths = mounted_paths(block)
    if not paths:
        raise error('NotMounted', f'Device `{block.path}\' is not mounted')
    for each in mockobject.objects.values():
        if each.props.get(FILE_SYSTEM_IFACE, {}).get('MountPoints') and each.volume == block.volume:
            each.props[FILE_SYSTEM_IFACE]['MountPoints'] = mount_points(paths[1:])


def lock(block):
    contents = blocks_where('CryptoBackingDevice', block.path)
    if not contents:
        raise error('Failed', f'Device {block.path} is not unlocked')
    for content in contents:
        refuse_if_in_use(content)
        forget(content.path)


def refuse_if_in_use(block):
    if mounted_paths(block):
        raise error('DeviceBusy', f'Device {block.path} is mounted')
    if blocks_where('CryptoBackingDevice', block.path):
        raise error('DeviceBusy', f'Encrypted device {block.path} is unlocked')


def refuse_if_drive_in_use(drive):
    for block in blocks_where('Drive', drive.path):
        refuse_if_in_use(block)


def drives_of_device(drive):
    sibling_id = drive.props[DRIVE_IFACE]['SiblingId']
    return [drive] + [other for other in mockobject.objects.values()
                      if other is not drive and sibling_id
                      and other.props.get(DRIVE_IFACE, {}).get('SiblingId') == sibling_id]


def power_off(drive):
    drives = drives_of_device(drive)
    for each in drives:
        refuse_if_drive_in_use(each)
    for each in drives:
        for block in blocks_where('Drive', each.path):
            forget(block.path)
        forget(each.path)


def eject(drive):
    refuse_if_drive_in_use(drive)
    for block in blocks_where('Drive', drive.path):
        block.props.pop(FILE_SYSTEM_IFACE, None)


ACTIONS = {'Unmount': unmount, 'Lock': lock, 'PowerOff': power_off, 'Eject': eject}


def answer(act, reply, fail):
    try:
        act()
        reply()
    except dbus.exceptions.DBusException as problem:
        fail(problem)


def add_method(mock, name, interface, method_name, parameters):
    """Adds a method that records its calls and answers them as the parameters say."""
    key = f'{name}.{method_name}'
    failure = parameters.get('errors', {}).get(key)
    gathering = parameters.get('gatherings', {}).get(method_name, 1)
    waiting = waiting_calls.setdefault(method_name, [])

    def act(owner):
        if failure:
            raise dbus.exceptions.DBusException(failure[1], name=failure[0])
        ACTIONS[method_name](owner)

    def method(owner, options, reply, fail, message):
        may_ask = ', may ask' if message.get_allow_interactive_authorization() else ''
        calls.append(f'{key} {dict(options)}{may_ask}')
        waiting.append((lambda: act(owner), reply, fail))
        if len(waiting) == gathering:
            for call in waiting:
                answer(*call)
            waiting.clear()

    method.__name__ = method_name
    exported = dbus.service.method(interface, in_signature='a{sv}', out_signature='',
                                   async_callbacks=('reply', 'fail'),
                                   message_keyword='message')(method)
    mock.methods.setdefault(interface, {})[method_name] = ('a{sv}', '', '', exported)


def add_interface(path, name, interface, properties, methods, parameters):
    mock = mockobject.objects[path]
    mock.props[interface] = properties
    for method_name in methods:
        add_method(mock, name, interface, method_name, parameters)


def add_drive(service, name, properties, parameters):
    path = drive_path(name)
    service.AddObject(path, DRIVE_IFACE, {}, [])
    complete = {'CanPowerOff': False, 'Ejectable': False, 'Optical': False, 'SiblingId': '',
                'Removable': True, 'Size': dbus.UInt64(2 ** 40), **properties}
    add_interface(path, name, DRIVE_IFACE, complete, ['PowerOff', 'Eject'], parameters)


def add_block(service, name, block, parameters):
    path = block_path(name)
    service.AddObject(path, BLOCK_IFACE, {}, [])
    add_interface(path, name, BLOCK_IFACE, {
        'DeviceNumber': dbus.UInt64(block.get('number', 0)),
        'Drive': drive_path(block.get('drive')),
        'CryptoBackingDevice': block_path(block.get('inside')),
        'Device': dbus.ByteArray(b'/dev/' + name.encode() + b'\0'),
    }, [], parameters)
    if any(other.get('inside') == name for other in parameters['blocks'].values()):
        add_interface(path, name, ENCRYPTED_IFACE, {}, ['Lock'], parameters)
    if 'mounted' in block:
        paths = [bytes.fromhex(path) + b'\0' for path in block['mounted']]
        add_interface(path, name, FILE_SYSTEM_IFACE, {'MountPoints': mount_points(paths)},
                      ['Unmount'], parameters)
        mockobject.objects[path].volume = block.get('sharing') or name


@dbus.service.method(TEST_IFACE, in_signature='', out_signature='as')
def Calls(_mock):
    return dbus.Array(calls, signature='s')


@dbus.service.method(TEST_IFACE, in_signature='sss', out_signature='')
def MakeOdd(_mock, interface, key, kind):
    name, property_name = key.split('.')
    mock = mockobject.objects.get(block_path(name)) or mockobject.objects[drive_path(name)]
    properties = mock.props[BUS_NAME + '.' + interface]
    own_value = own_values.setdefault(key, properties.get(property_name))
    properties.pop(property_name, None)
    if kind != 'absent':
        properties[property_name] = own_value if kind == 'own' else ODD_VALUES[kind]


@dbus.service.method(TEST_IFACE, in_signature='s', out_signature='')
def MakeListOdd(mock, kind):
    signature, value = ODD_LISTS[kind]
    mock.AddMethod(OBJECT_MANAGER_IFACE, 'GetManagedObjects', '', signature, lambda _mock: value)


def load(mock, parameters):
    for name, properties in parameters.get('drives', {}).items():
        add_drive(mock, name, properties, parameters)
    for name, block in parameters.get('blocks', {}).items():
        add_block(mock, name, block, parameters)
    print('ready', flush=True)
