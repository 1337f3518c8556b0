// Writes every file that the library writes, from the shipped data, so that the files written on
// two systems can be compared; see tests/tree/check_written_files.py.
//
//   write_files DATA-DIRECTORY TARGET-DIRECTORY

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include <zelstandard/platform/FileCrypt.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/zelstandard.h>
#include <zelsuite/zelsuite.h>

using namespace Standard;

namespace
{

/// Enciphers a text, reads it again as the library does, and writes what came out.
bool roundTrip(const std::string& text, const std::string& path)
{
    const std::string key = "kT$WqRmYdNc4";
    const std::string enciphered = path + ".enc";
    std::istringstream plain(text);
    {
        std::ofstream file(enciphered, std::ios::binary);
        if (!zelsuite::encrypt(plain, file, key))
            return false;
    }
    std::ostringstream again;
    if (!FileCrypt::Clr::KorvaneUtil::decrypt(enciphered, again, key) || again.str() != text)
        return false;
    ActionTypeManager(enciphered).output(path);
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: " << argv[0] << " DATA-DIRECTORY TARGET-DIRECTORY\n";
        return 2;
    }
    const std::string data = argv[1];
    const std::string target = std::string(argv[2]) + "/";
    zelsuite::setInstallationDirectory(data);

    ActionTypeManager actions(data + "/ActionTypes.xml");
    StateAttributeManager attributes(&actions);
    attributes.init(data + "/StateAttributes.xml");

    actions.output(target + "actions.xml");
    attributes.output(target + "attributes.xml");
    ZelStandard::get()->output(target + "settings.xml");
    Coefficients::get()->output(target + "coefficients.xml");
    Control::output(target + "control.xml");

    // The whole settings document, with what it holds beside the values, written by each part.
    ZelXmlTree tree;
    std::ifstream settings(data + "/Profiles/Standard.xml");
    tree.buildOfStream(settings);
    IO::write(tree, ZelStandard::get());
    Coefficients::get()->output(tree);
    Control::output(tree);
    zelofstream((target + "document.xml").c_str(), std::ios::out).stream() << std::flush;
    {
        zelofstream file((target + "document.xml").c_str(), std::ios::app);
        tree.putToStream(file.stream(), true);
    }

    std::ostringstream text;
    actions.output(text);
    if (!roundTrip(text.str(), target + "deciphered.xml")) {
        std::cerr << "the enciphered action types do not come back\n";
        return 1;
    }
    return 0;
}
